#include <gtest/gtest.h>

#include "kit/TempFolder.h"
#include "shell/SettingsStore.h"
#include "skin/Keys.h"

namespace feedloom {
namespace {

constexpr Settings kAllDifferent{.newFeedMode = 1,
                                 .newFeedDuration = 3,
                                 .newFeedMsgDuration = 2,
                                 .newFeedMsgTransparency = 40,
                                 .previewMode = 1,
                                 .feedDeleteMode = 0,
                                 .feedDeleteDate = 15};

class SettingsStore : public testing::Test {
 protected:
  void WriteText(const std::string& name, const std::string& text) {
    EXPECT_TRUE(registry_.WriteString(kModuleKey, name, text));
  }

  TempFolder folder_;
  Registry registry_{folder_.File("registry.reg")};
};

TEST_F(SettingsStore, WhatWasSavedIsReadBackByFrameAndPanel) {
  SavePanelSettings(registry_, kAllDifferent);
  EXPECT_EQ(LoadFrameSettings(registry_), kAllDifferent);
  EXPECT_EQ(LoadPanelSettings(registry_), kAllDifferent);
}

TEST_F(SettingsStore, EachValueIsStoredAsANumberAndAsItsTextInTheSettledOrder) {
  SavePanelSettings(registry_, kAllDifferent);
  const std::string saved = folder_.Read("registry.reg");
  EXPECT_EQ(saved.substr(saved.find("[HKEY")),
            "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Halvix3.0\\Skyfold]\n"
            "\"NewFeedMode\"=dword:00000001\n"
            "\"NewFeedDuration\"=dword:00000003\n"
            "\"NewFeedModeStr\"=\"1\"\n"
            "\"NewFeedDurationStr\"=\"3\"\n"
            "\"NewFeedMsgDuration\"=dword:00000002\n"
            "\"NewFeedMsgDurationStr\"=\"2\"\n"
            "\"NewFeedMsgTransparency\"=dword:00000028\n"
            "\"NewFeedMsgTransparencyStr\"=\"40\"\n"
            "\"PreviewMode\"=dword:00000001\n"
            "\"PreviewModeStr\"=\"1\"\n"
            "\"FeedDeleteMode\"=dword:00000000\n"
            "\"FeedDeleteModeStr\"=\"0\"\n"
            "\"FeedDeleteDate\"=dword:0000000f\n"
            "\"FeedDeleteDateStr\"=\"15\"\n");
}

TEST_F(SettingsStore, OnlyTheTextsAreRead) {
  EXPECT_TRUE(registry_.WriteDword(kModuleKey, "FeedDeleteDate", 30));
  EXPECT_EQ(LoadFrameSettings(registry_), Settings());
  WriteText("FeedDeleteDateStr", "7 days");
  WriteText("NewFeedDurationStr", "often");
  EXPECT_EQ(LoadFrameSettings(registry_), Settings{.feedDeleteDate = 7});
}

TEST_F(SettingsStore, TheFrameTakesAnyModeButZeroAsSet) {
  WriteText("PreviewModeStr", "2");
  WriteText("FeedDeleteModeStr", "-1");
  const Settings settings = LoadFrameSettings(registry_);
  EXPECT_EQ(settings.previewMode, 1);
  EXPECT_EQ(settings.feedDeleteMode, 1);
}

TEST_F(SettingsStore, ARegistryThatCannotBeReadGivesDefaultsAndIsLeftAlone) {
  folder_.Write("registry.reg", "damaged");
  SavePanelSettings(registry_, kAllDifferent);
  EXPECT_EQ(LoadFrameSettings(registry_), Settings());
  EXPECT_EQ(folder_.Read("registry.reg"), "damaged");
}

}  // namespace
}  // namespace feedloom
