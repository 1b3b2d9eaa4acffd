#include "host/Refusal.h"

#include <pwd.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <filesystem>

#include "files/Path.h"
#include "files/Registry.h"
#include "profile/IniFile.h"
#include "profile/ProfileDefaults.h"
#include "profile/SharePaths.h"
#include "skin/HostConfig.h"
#include "skin/Keys.h"
#include "text/Text.h"

namespace feedloom {
namespace {

std::string LanguageOf(const ProfilePaths& paths) {
  const std::string stored = HostConfig(Registry(paths.registry)).GetHostLanguage();
  return stored.empty() ? DefaultLanguage() : stored;
}

// The user to whom `dir` belongs, if that is another one and this one cannot write it; else empty.
std::string StrangerWhoOwns(const std::string& dir) {
  struct stat state {};
  if (stat(dir.c_str(), &state) != 0 || state.st_uid == geteuid()) return {};
  if (access(dir.c_str(), W_OK) == 0) return {};
  const passwd* const owner = getpwuid(state.st_uid);
  return owner != nullptr ? owner->pw_name : std::to_string(state.st_uid);
}

}  // namespace

// What the disk on which `dir` lies, or would, has to do with a failure; null when nothing.
const char* DiskFault(const std::string& dir) {
  constexpr fsblkcnt_t kRoom = 64 * 1024;  // for the registry and the index of the database
  struct statvfs disk {};
  std::filesystem::path place = dir;
  while (statvfs(place.c_str(), &disk) != 0 && place.has_relative_path())
    place = place.parent_path();
  if ((disk.f_flag & ST_RDONLY) != 0) return kHostTextProfileDiskReadOnly;
  const bool isKnown = disk.f_blocks > 0;
  return isKnown && disk.f_bavail * disk.f_frsize < kRoom ? kHostTextProfileDiskFull : nullptr;
}

// The shared file is read itself: a profile that cannot be read does not say where it lies.
Refusal ProfileRefusal(const char* textKey, const ProfilePaths& paths, const std::string& who) {
  const IniFile texts = IniFile::Read(JoinPath(ShareDir(), "string.ini"));
  const auto text = [&](const std::string& language) {
    const auto found = texts.ValueInLanguage(kSectionHost, textKey, language).value_or(textKey);
    return ReplaceAll(ReplaceAll(ReplaceAll(found, "$", "\n"), "%2", who), "%1", paths.dir);
  };
  return {ReplaceAll(text("ENG"), "\n", " "), text(LanguageOf(paths))};
}

Refusal RefusalOf(const std::string& reason, const ProfilePaths& paths) {
  const std::string owner = StrangerWhoOwns(paths.dir);
  if (!owner.empty()) return ProfileRefusal(kHostTextProfileNotYours, paths, owner);
  const char* const fault = DiskFault(paths.dir);
  if (fault == nullptr) return {reason, reason};
  const Refusal refusal = ProfileRefusal(fault, paths);
  return {reason + " " + refusal.told, refusal.shown + "\n\n" + reason};
}

}  // namespace feedloom
