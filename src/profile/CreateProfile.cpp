#include <fmt/core.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <iterator>
#include <utility>
#include <vector>

#include "files/Path.h"
#include "files/RegistryFile.h"
#include "profile/HostWishes.h"
#include "profile/IniFile.h"
#include "profile/KeptDatabase.h"
#include "profile/Profile.h"
#include "profile/ProfileDatabase.h"
#include "profile/SharePaths.h"
#include "skin/HostConfig.h"
#include "skin/Keys.h"
#include "text/Text.h"

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
  Failure failure;  // the first one
};

ProfileSources ReadProfileSources(const std::string& shareDir, const std::string& language,
                                  CodePage codePage) {
  ProfileSources sources;
  const auto fail = [&](std::string reason) {
    if (!sources.failure) sources.failure = std::move(reason);
  };
  const auto read = [&](const std::string& path) {
    auto text = ReadFile(path);
    if (!text) fail(fmt::format("Cannot read the shared file '{}'.", path));
    return std::move(text).value_or("");
  };
  sources.schema = read(JoinPath(shareDir, "schema.sql"));
  sources.sampleFeed = read(JoinPath(JoinPath(shareDir, "sample"), language + ".xml"));
  const std::string stringIni = JoinPath(shareDir, "string.ini");
  const IniFile ini = IniFile::Parse(read(stringIni));
  const auto name = [&](const char* key) {
    const std::string utf8 = ini.ValueInLanguage(kSectionHost, key, language).value_or("");
    if (utf8.empty()) fail(fmt::format("The shared file '{}' lacks the text {}.", stringIni, key));
    return codePage.FromUtf8(utf8);
  };
  sources.content.folderName = name(kHostTextFolder);
  sources.content.cabinetName = name(kHostTextCabinet);
  sources.content.sampleTitle = name(kHostTextSampleChannel);
  return sources;
}

std::string RegistryText(const ProfilePaths& paths, const std::string& shareDir, CodePage codePage,
                         const std::string& language) {
  std::vector<RegistryEntry> entries = {
      {kHostKey, kValueProfileDir, paths.dir},
      {kHostKey, kValueWorkDir, paths.workDir},
      {kHostKey, kValueAppTitle, kOwnTitle},
      {kHostKey, kValueLanguage, language},
      {kHostKey, kValueCodePage, std::string(codePage.DeclaredName())}};
  std::ranges::move(SharePathsIn(shareDir, kLightSkin), std::back_inserter(entries));
  std::ranges::move(HostWishes(), std::back_inserter(entries));
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

  if (auto failure = CheckNoProfile(paths)) return failure;
  if (auto failure = CheckLengths(paths, share)) return failure;
  ProfileSources sources = ReadProfileSources(share, languageCode, codePage);
  if (sources.failure) return sources.failure;
  sources.content.sampleFeedUrl = FileUrl(paths.sampleFeed);
  for (const std::string& directory : {paths.moduleDir, paths.workDir}) {
    if (auto failure = MakeDirectories(directory)) return failure;
  }
  return Write(paths, share, sources, RegistryText(paths, share, codePage, languageCode));
}

Failure MakeDatabase(const ProfilePaths& paths, const std::string& shareDir, CodePage codePage,
                     const std::string& language) {
  ProfileSources sources = ReadProfileSources(shareDir, ToUpperAscii(language), codePage);
  if (sources.failure) return sources.failure;
  sources.content.sampleFeedUrl = FileUrl(paths.sampleFeed);
  return CreateDatabase(paths.database, sources.schema, sources.content);
}

}  // namespace feedloom
