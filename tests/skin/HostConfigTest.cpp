#include <gtest/gtest.h>

#include "kit/TempFolder.h"
#include "skin/HostConfig.h"
#include "skin/Keys.h"

namespace feedloom {
namespace {

class HostConfigTest : public testing::Test {
 protected:
  void Set(const char* name, const std::string& value) const {
    ASSERT_TRUE(registry_.WriteString(kHostKey, name, value));
  }
  void SetNumber(const char* name, std::uint32_t value) const {
    ASSERT_TRUE(registry_.WriteDword(kHostKey, name, value));
  }

  const TempFolder folder_;
  const Registry registry_{folder_.File("registry.reg")};
  const HostConfig config_{registry_};
};

TEST_F(HostConfigTest, MissingValuesAreEmptyAndTheTitleHasADefault) {
  EXPECT_EQ(config_.GetImageDir(), "");
  EXPECT_EQ(config_.GetIniDir(), "");
  EXPECT_EQ(config_.GetModelName(), "");
  EXPECT_EQ(config_.GetAppTitle(), "Halvix 3.0");
  EXPECT_FALSE(config_.IsDebugMode());
  EXPECT_EQ(config_.GetCodePage(), CodePage::Korean());

  Set("APP_TITLE", "");
  EXPECT_EQ(config_.GetAppTitle(), "Halvix 3.0");
}

TEST_F(HostConfigTest, EachCallReadsTheRegistryAfresh) {
  Set("CORVANE_LANG", "KOR");
  EXPECT_EQ(config_.GetHostLanguage(), "KOR");
  Set("CORVANE_LANG", "ENG");
  EXPECT_EQ(config_.GetHostLanguage(), "ENG");

  SetNumber("Debug Mode", 2);
  EXPECT_TRUE(config_.IsDebugMode());
  SetNumber("Debug Mode", 0);
  EXPECT_FALSE(config_.IsDebugMode());
}

TEST_F(HostConfigTest, DirectoriesEndWithTheSeparatorThatTheyUse) {
  Set("IMAGEDIR", "C:\\Skin");
  EXPECT_EQ(config_.GetImageDir(), "C:\\Skin\\");
  Set("IMAGEDIR", "C:\\Skin\\");
  EXPECT_EQ(config_.GetImageDir(), "C:\\Skin\\");
  Set("IMAGEDIR", "/usr/share/skin");
  EXPECT_EQ(config_.GetImageDir(), "/usr/share/skin/");
  Set("CURRENT_PATH", "/usr/share");
  EXPECT_EQ(config_.GetCurrentPath(), "/usr/share");
}

TEST_F(HostConfigTest, IniFilesLieInTheIniDirectory) {
  Set("INIDIR", "/ini");
  Set("CORVANE_DEFAULT_MODELNAME", "sph-한1");
  EXPECT_EQ(config_.GetImageIniPath(), "/ini/image.ini");
  EXPECT_EQ(config_.GetStringIniPath(), "/ini/string.ini");
  EXPECT_EQ(config_.GetBmCorvaneIniPath(), "/ini/bm_Corvane.ini");
  EXPECT_EQ(config_.GetCorvaneIniPath(), "/ini/corvane.ini");
  EXPECT_EQ(config_.GetModelIniPath(), "/ini/SPH-한1.ini");
}

TEST_F(HostConfigTest, TheDefaultModelNameStandsInOnlyForAMissingOne) {
  Set("CORVANE_DEFAULT_MODELNAME", "Default");
  EXPECT_EQ(config_.GetModelName(), "Default");
  Set("CORVANE_DISPLAY_MODELNAME", "Display");
  EXPECT_EQ(config_.GetModelName(), "Display");
  Set("CORVANE_DISPLAY_MODELNAME", "");
  EXPECT_EQ(config_.GetModelName(), "");
}

TEST_F(HostConfigTest, TextsComeInTheModulesCodePageAndPathsStayBytes) {
  Set("APP_TITLE", "똠방각하");
  Set("WORKDIR", "/집/work");
  EXPECT_EQ(config_.GetAppTitle(), CodePage::Korean().FromUtf8("똠방각하"));
  EXPECT_EQ(config_.GetWorkDir(), "/집/work");

  Set("CODEPAGE", "utf-8");
  EXPECT_EQ(config_.GetCodePage(), CodePage::Utf8());
  EXPECT_EQ(config_.GetAppTitle(), "똠방각하");
}

TEST_F(HostConfigTest, LongValuesAreCutToTheHostsBuffers) {
  Set("WORKDIR", std::string(300, 'w'));
  EXPECT_EQ(config_.GetWorkDir(), std::string(259, 'w'));

  std::string syllables;
  for (int i = 0; i < 100; ++i) syllables += "가";
  Set("CORVANE_PLATFORM", syllables);
  EXPECT_EQ(config_.GetPlatform().size(), 126u);  // 63 syllables of two bytes: none is halved
  Set("CORVANE_OSTYPE", std::string(127, 'o'));
  EXPECT_EQ(config_.GetOsType().size(), 127u);
}

}  // namespace
}  // namespace feedloom
