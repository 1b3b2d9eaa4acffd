// A real profile in a folder of its own, whose host asks for nothing beyond the defaults.
#pragma once

#include "kit/ShippedSkin.h"
#include "profile/HostWishes.h"

namespace feedloom {

class TestProfile {
 public:
  explicit TestProfile(CodePage codePage = CodePage::Korean(),
                       const std::string& language = "KOR") {
    EXPECT_EQ(CreateProfile(paths_.dir, ShareDir(), codePage, language), Failure());
    std::vector<RegistryEntry> wishes = HostWishes();
    for (RegistryEntry& wish : wishes) wish.value = "";
    EXPECT_TRUE(TheRegistry().Write(wishes));
  }

  const ProfilePaths& Paths() const { return paths_; }
  Registry TheRegistry() const { return Registry(paths_.registry); }
  HostLookup Lookup() const { return ReadHostTexts(HostConfig(TheRegistry())); }
  // Links `module`, the built library, into the profile; the link's path.
  std::string LinkModule(const std::string& module) const {
    std::filesystem::create_symlink(module, paths_.module);
    return paths_.module;
  }

 private:
  TempFolder folder_;
  ProfilePaths paths_{folder_.File("profile")};
};

}  // namespace feedloom
