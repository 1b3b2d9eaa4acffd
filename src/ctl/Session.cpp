#include "ctl/Session.h"

#include <fmt/core.h>

#include "ctl/Output.h"
#include "fetch/FeedMemory.h"
#include "profile/HostTexts.h"
#include "profile/MovedProfile.h"
#include "profile/ProfileBackup.h"
#include "profile/ProfileDefaults.h"
#include "profile/ProfileLock.h"
#include "profile/WriteAhead.h"
#include "threads/Clock.h"

namespace feedloom {
namespace {

constexpr std::chrono::milliseconds kPatience(5'000);  // with other programs' locks
constexpr std::chrono::milliseconds kNoPatience(0);
constexpr char kOlderMode[] =
    "on the disk of this profile SQLite's write-ahead mode is not to be had: "
    "programs wait while another one stores";

// Returns the profile's directory. When there is no default one, prints an error and returns "".
std::string ProfileDir(const GlobalOptions& global) {
  std::string dir = global.profileDir.empty() ? DefaultProfileDir() : global.profileDir;
  if (dir.empty()) PrintError("no home directory for a profile; name one with --profile");
  return dir;
}

bool Succeeded(const Failure& failure) {
  if (failure) PrintError(*failure);
  return !failure;
}

Failure MakeProfile(const std::string& dir, const InitOptions& options) {
  const std::string language = options.language.value_or(DefaultLanguage());
  const CodePage codePage =
      options.codePage ? CodePage::FromName(*options.codePage) : CodePage::Utf8();
  return CreateProfile(dir, ShareDir(), codePage, language);
}

// A window that has the profile has completed it already, and would not see the change.
Failure CompleteInterruptedRestore(const ProfilePaths& paths) {
  if (!IsRestorePending(paths)) return {};
  ProfileLock lock;
  if (auto failure = lock.Take(paths.dir)) return failure;
  return CompleteRestore(paths);
}

bool Prepare(const ProfilePaths& paths) {
  if (!Succeeded(CompleteInterruptedRestore(paths))) return false;
  if (!Registry(paths.registry).IsReadable()) {
    PrintError(fmt::format("{} is damaged; nothing was changed", paths.registry));
    return false;
  }
  FollowMove(paths.dir);
  return Succeeded(RepairSharePaths(paths.dir, ShareDir()));
}

}  // namespace

int RunInit(const GlobalOptions& global, const InitOptions& options) {
  const std::string dir = ProfileDir(global);
  if (dir.empty()) return kFailure;
  if (!Succeeded(MakeProfile(dir, options))) return kFailure;
  if (global.json) {
    PrintJson({{"profile", dir}});
  } else {
    PrintLine(fmt::format("Made a profile in {}", dir));
  }
  return kSuccess;
}

std::optional<ProfilePaths> FindProfile(const GlobalOptions& global) {
  const std::string dir = ProfileDir(global);
  if (dir.empty()) return std::nullopt;
  const ProfilePaths paths(AbsolutePath(dir));
  if (ProfileExists(paths)) return paths;
  const Failure failure = MakeProfile(paths.dir, {});
  const bool isThere = ProfileExists(paths);  // another program may have made it in the same moment
  if (!isThere) PrintError(failure.value_or(""));
  if (!failure) PrintError(fmt::format("made a new profile in {}", paths.dir));
  return isThere ? std::optional(paths) : std::nullopt;
}

std::optional<ProfilePaths> OpenProfile(const GlobalOptions& global) {
  auto paths = FindProfile(global);
  if (paths && !Prepare(*paths)) paths.reset();
  return paths;
}

std::unique_ptr<Session> Session::Open(const GlobalOptions& global, DatabaseUse use) {
  const auto paths = OpenProfile(global);
  if (!paths) return nullptr;
  const auto began = std::chrono::steady_clock::now();
  std::unique_ptr<Session> session(new Session(global, *paths, use));
  if (IsOlderModeNews(session->database_.get(), session->registry_)) PrintError(kOlderMode);
  const auto patience = kPatience - (std::chrono::steady_clock::now() - began);
  if (WaitForLocks(session->database_.get(), use,
                   std::chrono::duration_cast<std::chrono::milliseconds>(patience))) {
    return session;
  }
  PrintError(kDatabaseInUse);
  return nullptr;
}

Session::Session(const GlobalOptions& global, const ProfilePaths& paths, DatabaseUse use)
    : database_(KeepDatabase(paths.database, ShareDir(),
                             use == DatabaseUse::None ? kNoPatience : kPatience)),
      json_(global.json),
      registry_(paths.registry),
      config_(registry_),
      skin_(ReadHostTexts(config_, paths.texts), config_),
      errors_(std::make_shared<StoreErrors>()),
      store_(std::make_shared<Store>(
          ReadableDatabase(paths.database), config_.GetCodePage(), SystemClock(),
          [errors = errors_](std::string_view text) { errors->Report(text); })) {}

SharedServices Session::Services() {
  workFolder_ = std::make_unique<WorkFolder>(config_.GetWorkDir());
  if (workFolder_->Path().empty()) {
    PrintError(fmt::format("cannot make a folder in {}", config_.GetWorkDir()));
    return nullptr;
  }
  return std::make_shared<FetchServices>(FetchServices{store_, registry_, SystemClock(),
                                                       workFolder_->Path(), FeedMemoryFile(),
                                                       config_.ReadsLeniently()});
}

}  // namespace feedloom
