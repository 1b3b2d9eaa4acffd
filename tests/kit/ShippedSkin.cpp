#include "kit/ShippedSkin.h"

#include "profile/HostTexts.h"
#include "profile/Profile.h"
#include "skin/Keys.h"

namespace feedloom {
namespace {

HostConfig Written(const Registry& registry, const std::string& language, const std::string& skin) {
  for (const auto& [name, path] : SharePathsIn(ShareDir(), skin)) {
    EXPECT_TRUE(registry.WriteString(kHostKey, name, path));
  }
  EXPECT_TRUE(registry.WriteString(kHostKey, kValueLanguage, language));
  return HostConfig(registry);
}

}  // namespace

ShippedSkin::ShippedSkin(const std::string& language, const std::string& skin)
    : registry_(folder_.File("registry.reg")),
      skin_(ReadHostTexts(Written(registry_, language, skin)), HostConfig(registry_)) {}

void ShippedSkin::SetHostValue(const std::string& name, const std::string& value) const {
  EXPECT_TRUE(registry_.WriteString(kHostKey, name, value));
}

}  // namespace feedloom
