// feedloomctl backup, restore and convert: the whole profile in one file, and in another code page.
#include <fmt/core.h>

#include "ctl/Commands.h"
#include "ctl/Output.h"
#include "ctl/Session.h"
#include "profile/ConvertProfile.h"
#include "profile/ProfileBackup.h"
#include "profile/ProfileLock.h"

namespace feedloom {
namespace {

int Told(const GlobalOptions& global, const Failure& failure, std::string_view done) {
  if (failure) {
    PrintError(*failure);
    return kFailure;
  }
  if (global.json) {
    PrintJson({{"done", done}});
  } else {
    PrintLine(done);
  }
  return kSuccess;
}

// A window would go on with what it has read of the profile.
Failure Restore(const ProfilePaths& paths, const std::string& file) {
  ProfileLock lock;
  if (auto failure = lock.Take(paths.dir)) return failure;
  if (auto failure = TakeBackup(paths, file)) return failure;
  return CompleteRestore(paths);
}

Failure Convert(const ProfilePaths& paths) {
  ProfileLock lock;
  if (auto failure = lock.Take(paths.dir)) return failure;
  return ConvertToUtf8(paths);
}

}  // namespace

int RunBackup(const GlobalOptions& global, const BackupOptions& options) {
  const auto paths = OpenProfile(global);
  if (!paths) return kFailure;
  const auto logins = options.passwords ? BackedUpLogins::Included : BackedUpLogins::LeftOut;
  return Told(global, BackUpProfile(*paths, AbsolutePath(options.file), logins), "backed up");
}

// What is damaged in the profile may be just what is to be restored.
int RunRestore(const GlobalOptions& global, const std::string& file) {
  const auto paths = FindProfile(global);
  if (!paths) return kFailure;
  return Told(global, Restore(*paths, AbsolutePath(file)), "restored");
}

int RunConvert(const GlobalOptions& global) {
  const auto paths = OpenProfile(global);
  if (!paths) return kFailure;
  const bool isUtf8 = HostConfig(Registry(paths->registry)).GetCodePage() == CodePage::Utf8();
  return Told(global, Convert(*paths), isUtf8 ? "its texts are in UTF-8 already" : "converted");
}

}  // namespace feedloom
