#pragma once

#include <string>

#include "profile/KeptDatabase.h"
#include "profile/Profile.h"
#include "profile/ProfileLock.h"

namespace feedloom {

struct HostOptions;

// An opened profile, locked as long as the object lives.
struct HostProfile {
  explicit HostProfile(const std::string& profileDir) : paths(AbsolutePath(profileDir)) {}

  const ProfilePaths paths;
  bool isNew = false;  // OpenProfile has created it
  ProfileLock lock;
  KeptDatabase database;
};

// The profile's directory: that of `options`, else the default one. Empty when neither is known.
std::string ProfileDir(const HostOptions& options);

// Creates the profile if it does not exist, locks it, repairs its shared paths, stores the language
// of `options` and brings the database up to date, for which it waits a second at most. Fails, with
// a message for the user (UTF-8), when the profile is damaged, read-only, in use by another process
// or has another code page than `options` ask for; the profile's files are unchanged then.
[[nodiscard]] Failure OpenProfile(HostProfile& profile, const HostOptions& options);

// Stores `language` ("KOR" or "ENG", in upper or lower case) in the registry; the module uses it
// from its next start on. An empty string changes nothing. Fails when the registry cannot be
// written.
[[nodiscard]] Failure SetLanguage(const ProfilePaths& paths, const std::string& language);

}  // namespace feedloom
