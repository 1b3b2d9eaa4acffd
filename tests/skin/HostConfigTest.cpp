
#include "kit/TempFolder.h"
#include "skin/HostConfig.h"
#include "skin/Keys.h"

namespace feedloom {

struct HostConfigTest : testing::Test {
  void Set(const char* name, const std::string& value) const {
    ASSERT_TRUE(registry_.WriteString(kHostKey, name, value));
  }

  const TempFolder folder_;
  const Registry registry_{folder_.File("registry.reg")};
  const HostConfig config_{registry_};
};

TEST_F(HostConfigTest, EachTextIsReadAfreshAndCutBetweenCharacters) {
  using Getter = std::string (HostConfig::*)() const;
  constexpr std::pair<const char*, Getter> kTexts[] = {
      {"APP_TITLE", &HostConfig::GetAppTitle},
      {"CORVANE_LANG", &HostConfig::GetHostLanguage},
      {"CORVANE_DISPLAY_MODELNAME", &HostConfig::GetModelName},
      {"CORVANE_DEFAULT_MODELNAME", &HostConfig::GetDefaultModelName}};
  std::string syllables;
  for (int i = 0; i < 100; ++i) syllables += "똠";
  for (const auto& [name, get] : kTexts) {
    SCOPED_TRACE(name);
    EXPECT_EQ((config_.*get)(), get == &HostConfig::GetAppTitle ? "Halvix 3.0" : "");
    Set(name, "똠방각하");
    EXPECT_EQ((config_.*get)(), CodePage::Korean().FromUtf8("똠방각하"));
    Set(name, syllables);
    EXPECT_EQ((config_.*get)().size(), 126u);  // 63 syllables of two bytes
  }
}

TEST_F(HostConfigTest, WhatAHostMayAskForIsOffUnlessItSaysSo) {
  EXPECT_EQ(config_.GetCodePage(), CodePage::Korean());
  Set("CODEPAGE", "utf-8");
  EXPECT_EQ(config_.GetCodePage(), CodePage::Utf8());
  EXPECT_FALSE(config_.OpensLinksOutside() || config_.AnnouncesChannels());
  EXPECT_FALSE(config_.HasHelpfulDialogs() || config_.ShowsSiteIcons());
  Set("NOTICE", "channels");
  Set("DIALOGS", "helpful");
  Set("ICONS", "on");
  EXPECT_TRUE(config_.AnnouncesChannels() && config_.HasHelpfulDialogs());
  EXPECT_TRUE(config_.ShowsSiteIcons());
  for (const auto& [value, isOutside] : {std::pair{"system", true}, {"PANE", false}}) {
    Set("POST_LINKS", value);
    EXPECT_EQ(config_.OpensLinksOutside(), isOutside);
  }
  for (const auto& [value, isCareful] : {std::pair{"", false}, {"careful", true}}) {
    Set("SELECTION", value);
    EXPECT_EQ(config_.SelectsCarefully(), isCareful);
  }
}

TEST_F(HostConfigTest, TheListStandsWhereTheHostWantsIt) {
  EXPECT_EQ(config_.GetListPlace(), ListPlace::Default);
  for (const auto& [value, place] : {std::pair{"above", ListPlace::Above},
                                     {"BESIDE", ListPlace::Beside},
                                     {"LEFT", ListPlace::Default}}) {
    Set("LIST_PLACE", value);
    EXPECT_EQ(config_.GetListPlace(), place);
  }
}

TEST_F(HostConfigTest, PathsAreBytesAndImagesAndIniFilesHaveTheirDirectorysSeparator) {
  EXPECT_EQ(config_.GetImageDir() + config_.GetIniDir() + config_.GetCurrentPath(), "");
  for (const auto& [dir, withSeparator] :
       {std::pair("C:\\집", "C:\\집\\"), {"C:\\집\\", "C:\\집\\"}, {"/집", "/집/"}}) {
    for (const char* name : {"IMAGEDIR", "INIDIR", "CURRENT_PATH", "WORKDIR"}) Set(name, dir);
    for (const auto& path : {config_.GetImageDir(), config_.GetIniDir()})
      EXPECT_EQ(path, withSeparator);
    for (const auto& path : {config_.GetCurrentPath(), config_.GetWorkDir()}) EXPECT_EQ(path, dir);
  }
  Set("WORKDIR", std::string(300, 'w'));
  EXPECT_EQ(config_.GetWorkDir(), std::string(259, 'w'));

  Set("CORVANE_DEFAULT_MODELNAME", "sph-한1");
  EXPECT_EQ(config_.GetModelName(), CodePage::Korean().FromUtf8("sph-한1"));
  EXPECT_EQ(config_.GetImageIniPath() + config_.GetStringIniPath(), "/집/image.ini/집/string.ini");
}

}  // namespace feedloom
