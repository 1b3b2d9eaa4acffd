// The texts and the skin that the project ships, as a host answers with them.
#pragma once

#include "kit/TempFolder.h"
#include "profile/HostTexts.h"
#include "profile/Profile.h"
#include "profile/SharePaths.h"
#include "skin/Keys.h"
#include "skin/Skin.h"

namespace feedloom {

// Has the skin written down in a registry of its own, in `language` ("KOR", "ENG"), with texts in
// the Korean code page, the images and colours of one of the skins, and a web directory, which is
// searched in the tests that say so only.
class ShippedSkin {
 public:
  explicit ShippedSkin(const std::string& language = "KOR", const std::string& skin = kLightSkin,
                       const std::string& directory = "http://directory.example/") {
    EXPECT_TRUE(registry_.Write(SharePathsIn(ShareDir(), skin)));
    SetHostValue(kValueLanguage, language);
    const std::string texts = folder_.File("string.ini");
    folder_.Write("string.ini", "[FEEDLOOM]\nRSS_SEARCH_URL=" + directory);
    skin_.emplace(ReadHostTexts(HostConfig(registry_), texts), HostConfig(registry_));
  }

  const Skin& Get() const { return *skin_; }
  // Gives the host's configuration this value (UTF-8) from now on.
  void SetHostValue(const std::string& name, const std::string& value) const {
    EXPECT_TRUE(registry_.WriteString(kHostKey, name, value));
  }
  const TempFolder& Folder() const { return folder_; }

 private:
  TempFolder folder_;
  Registry registry_{folder_.File("registry.reg")};
  std::optional<Skin> skin_;
};

}  // namespace feedloom
