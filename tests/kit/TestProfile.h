// A real profile in a folder of its own, as a new user gets it.
#pragma once

#include "kit/TempFolder.h"
#include "platform/CodePage.h"
#include "platform/Registry.h"
#include "profile/Profile.h"
#include "skin/HostLookup.h"

namespace feedloom {

class TestProfile {
 public:
  explicit TestProfile(CodePage codePage = CodePage::Korean(), const std::string& language = "KOR");

  const ProfilePaths& Paths() const { return paths_; }
  Registry TheRegistry() const { return Registry(paths_.registry); }

  // What a host answers with.
  HostLookup Lookup() const;

  // Links `module`, the built library, into the profile; the link's path.
  std::string LinkModule(const std::string& module) const;

 private:
  TempFolder folder_;
  ProfilePaths paths_;
};

}  // namespace feedloom
