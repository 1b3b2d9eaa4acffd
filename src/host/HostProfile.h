#pragma once

#include <string>

#include "host/ProfileLock.h"
#include "profile/Profile.h"

namespace feedloom {

struct HostOptions;

// A profile in this program's hands.
struct HostProfile {
  explicit HostProfile(const std::string& profileDir) : paths(AbsolutePath(profileDir)) {}

  const ProfilePaths paths;
  bool isNew = false;  // made just now
  ProfileLock lock;
};

// The directory of the profile that `options` name; empty when none can be told.
std::string ProfileDir(const HostOptions& options);

// Makes the profile when there is none, locks it and brings it in line with `options`. Fails when
// it cannot be used as it is; nothing in it has been changed then.
[[nodiscard]] Failure OpenProfile(HostProfile& profile, const HostOptions& options);

// Shows the profile in this language ("KOR", "ENG"; case does not matter) from the next start of
// the module on. An empty one changes nothing.
[[nodiscard]] Failure SetLanguage(const ProfilePaths& paths, const std::string& language);

}  // namespace feedloom
