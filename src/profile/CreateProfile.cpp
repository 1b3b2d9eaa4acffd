#include <fmt/core.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <iterator>
#include <utility>
#include <vector>

#include "platform/Path.h"
#include "platform/RegistryFile.h"
#include "platform/Text.h"
#include "profile/IniFile.h"
#include "profile/KeptDatabase.h"
#include "profile/Profile.h"
#include "profile/ProfileDatabase.h"
#include "profile/SharePaths.h"
#include "skin/HostConfig.h"
#include "skin/Keys.h"

namespace feedloom {
namespace {

// The deletion settings of a new profile: no automatic deletion, and 30 days when it is turned on.
constexpr std::uint32_t kNeverDelete = 1;
constexpr std::uint32_t kDaysToKeep = 30;

constexpr std::chrono::seconds kPatience(1);  // nobody else has opened a new database yet

// The shared files' content, read before anything is written.
struct ProfileSources {
  std::string schema;
  std::string sampleFeed;
  InitialContent content;
};

Failure ReadShared(const std::string& path, std::string& content) {
  auto read = ReadFile(path);
  if (!read) return fmt::format("Cannot read the shared file '{}'.", path);
  content = *std::move(read);
  return {};
}

Failure ReadNames(const std::string& path, const std::string& language, CodePage codePage,
                  InitialContent& content) {
  std::string text;
  if (Failure failure = ReadShared(path, text)) return failure;
  const IniFile ini = IniFile::Parse(text);
  const std::pair<const char*, std::string*> names[] = {
      {kHostTextFolder, &content.folderName},
      {kHostTextCabinet, &content.cabinetName},
      {kHostTextSampleChannel, &content.sampleTitle}};
  for (const auto& [key, name] : names) {
    *name = codePage.FromUtf8(ini.ValueInLanguage(kSectionHost, key, language).value_or(""));
    if (name->empty()) return fmt::format("The shared file '{}' lacks the text {}.", path, key);
  }
  return {};
}

Failure ReadProfileSources(const std::string& shareDir, const std::string& language,
                           CodePage codePage, ProfileSources& result) {
  const std::string sample = JoinPath(JoinPath(shareDir, "sample"), language + ".xml");
  if (auto failure = ReadShared(JoinPath(shareDir, "schema.sql"), result.schema)) return failure;
  if (auto failure = ReadShared(sample, result.sampleFeed)) return failure;
  return ReadNames(JoinPath(shareDir, "string.ini"), language, codePage, result.content);
}

std::string RegistryText(const ProfilePaths& paths, const std::string& shareDir, CodePage codePage,
                         const std::string& language) {
  std::vector<RegistryEntry> entries = {
      {kHostKey, kValueWorkDir, paths.workDir},
      {kHostKey, kValueAppTitle, kDefaultAppTitle},
      {kHostKey, kValueLanguage, language},
      {kHostKey, kValueCodePage, std::string(codePage.DeclaredName())}};
  std::ranges::move(SharePathsIn(shareDir, kLightSkin), std::back_inserter(entries));
  // Without these values the settings would show an age of 0 days, which they do not accept.
  for (const auto& [name, value] : {std::pair{kValueFeedDeleteMode, kNeverDelete},
                                    std::pair{kValueFeedDeleteDate, kDaysToKeep}}) {
    entries.push_back({kModuleKey, name, value});
    entries.push_back({kModuleKey, std::string(name) + kTextSuffix, std::to_string(value)});
  }
  return FormatRegistryFile(entries);
}

// HostConfig truncates longer paths, so such a profile would not work.
Failure CheckLengths(const ProfilePaths& paths, const std::string& shareDir) {
  const auto shared = SharePathsIn(shareDir, kLightSkin).front().value;
  for (const std::string& path : {paths.workDir, std::get<std::string>(shared)}) {
    if (path.size() > kMaxHostPath) {
      return fmt::format("The path '{}' is longer than {} bytes.", path, kMaxHostPath);
    }
  }
  return {};
}

Failure CheckNoProfile(const ProfilePaths& paths) {
  if (!ProfileExists(paths)) return {};
  return fmt::format("There is a profile in '{}' already.", paths.dir);
}

Failure Write(const ProfilePaths& paths, const std::string& shareDir, const ProfileSources& sources,
              const std::string& registryText) {
  const DirectoryLock lock(paths.dir);
  if (auto failure = CheckNoProfile(paths)) return failure;
  if (auto failure = WriteFileWhole(paths.sampleFeed, sources.sampleFeed)) return failure;
  if (!IsRegularFile(paths.database)) {
    auto failure = CreateDatabase(paths.database, sources.schema, sources.content);
    if (failure) return failure;
  }
  KeepDatabase(paths.database, shareDir, kPatience);  // brings it up to date
  return WriteFileWhole(paths.registry, registryText);
}

}  // namespace

Failure CreateProfile(const std::string& dir, const std::string& shareDir, CodePage codePage,
                      const std::string& language) {
  if (dir.empty()) return "No directory is named for the profile.";
  const ProfilePaths paths(AbsolutePath(dir));
  const std::string share = AbsolutePath(shareDir);
  const std::string languageCode = ToUpperAscii(language);

  ProfileSources sources;
  sources.content.sampleFeedUrl = FileUrl(paths.sampleFeed);
  if (auto failure = CheckNoProfile(paths)) return failure;
  if (auto failure = CheckLengths(paths, share)) return failure;
  if (auto failure = ReadProfileSources(share, languageCode, codePage, sources)) return failure;
  for (const std::string& directory : {paths.moduleDir, paths.workDir}) {
    if (auto failure = MakeDirectories(directory)) return failure;
  }
  return Write(paths, share, sources, RegistryText(paths, share, codePage, languageCode));
}

}  // namespace feedloom
