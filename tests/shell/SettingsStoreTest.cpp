
#include "kit/TempFolder.h"
#include "shell/SettingsStore.h"
#include "skin/Keys.h"

namespace feedloom {

TEST(SettingsStore, KeepsNumbersAndTextsInTheSettledOrderAndReadsTheTexts) {
  const TempFolder folder;
  const Registry registry{folder.File("registry.reg")};
  const Settings chosen{1, 3, 2, 40, 1, 0, 15};
  ASSERT_TRUE(SavePanelSettings(registry, chosen));
  EXPECT_EQ(LoadFrameSettings(registry), chosen);
  EXPECT_EQ(LoadPanelSettings(registry), chosen);
  const std::string saved = folder.Read("registry.reg");
  EXPECT_EQ(saved.substr(saved.find("[HKEY")),
            "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Halvix3.0\\Skyfold]\n\"NewFeedMode\"=dword:00000001\n"
            "\"NewFeedDuration\"=dword:00000003\n\"NewFeedModeStr\"=\"1\"\n"
            "\"NewFeedDurationStr\"=\"3\"\n\"NewFeedMsgDuration\"=dword:00000002\n"
            "\"NewFeedMsgDurationStr\"=\"2\"\n\"NewFeedMsgTransparency\"=dword:00000028\n"
            "\"NewFeedMsgTransparencyStr\"=\"40\"\n\"PreviewMode\"=dword:00000001\n"
            "\"PreviewModeStr\"=\"1\"\n\"FeedDeleteMode\"=dword:00000000\n"
            "\"FeedDeleteModeStr\"=\"0\"\n\"FeedDeleteDate\"=dword:0000000f\n"
            "\"FeedDeleteDateStr\"=\"15\"\n");
  for (const auto& [name, text] : {std::pair("FeedDeleteDateStr", "7 days"),
                                   {"NewFeedDurationStr", "often"},
                                   {"NewFeedModeStr", "5"},
                                   {"PreviewModeStr", "2"},
                                   {"FeedDeleteModeStr", "-1"}}) {
    EXPECT_TRUE(registry.WriteString(kModuleKey, name, text));
  }
  EXPECT_EQ(LoadFrameSettings(registry), (Settings{1, 0, 2, 40, 1, 1, 7}));
  EXPECT_EQ(LoadPanelSettings(registry), (Settings{5, 0, 2, 40, 2, -1, 7}));
}

}  // namespace feedloom
