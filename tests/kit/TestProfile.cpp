#include "kit/TestProfile.h"

#include "kit/ShippedSkin.h"
#include "profile/HostTexts.h"

namespace feedloom {

TestProfile::TestProfile(CodePage codePage, const std::string& language)
    : paths_(folder_.File("profile")) {
  EXPECT_EQ(CreateProfile(paths_.dir, ShareDir(), codePage, language), Failure());
}

HostLookup TestProfile::Lookup() const { return ReadHostTexts(HostConfig(TheRegistry())); }

std::string TestProfile::LinkModule(const std::string& module) const {
  std::filesystem::create_symlink(module, paths_.module);
  return paths_.module;
}

}  // namespace feedloom
