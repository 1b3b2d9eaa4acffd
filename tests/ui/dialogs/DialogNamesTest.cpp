// What a screen reader finds in each of the dialogs.
#include "ui/dialogs/DialogFixture.h"
#include "vxctrl/AccessibleTree.h"

namespace feedloom {
namespace {

class DialogNames : public DialogFixture {
 protected:
  const ChannelFacts channel_{
      .id = 1, .title = "Daily", .xmlLink = "http://x/", .folderId = 1, .folderName = "News"};
};

TEST_F(DialogNames, EveryControlHasOne) {
  const std::pair<const char*, std::function<void()>> dialogs[] = {
      {"search", [this] { AskSearchWord(frame, parent.get()); }},
      {"scrap", [this] { ChooseCabinet(frame, parent.get()); }},
      {"rename folder", [this] { AskGroupName(frame, parent.get(), "News"); }},
      {"rename channel", [this] { AskChannelName(frame, parent.get(), channel_); }},
      {"rename cabinet", [this] { AskCabinetName(frame, parent.get(), "Keep"); }},
      {"add channel", [this] { ShowChannelAdd(frame, parent.get(), "News", ""); }},
      {"add folder", [this] { ShowGroupAdd(frame, parent.get()); }},
      {"add cabinet", [this] { ShowCabinetAdd(frame, parent.get()); }},
      {"move channel", [this] { ShowChannelMove(frame, parent.get(), channel_); }},
      {"channel", [this] { ShowChannelInfo(frame, parent.get(), channel_); }},
      {"list's address", [this] { AskListAddress(frame, parent.get()); }},
      {"handset", [this] { ShowSync(frame, parent.get()); }},
      {"directory", [this] { ShowDirectory(frame, parent.get()); }},
  };
  for (const auto& [name, show] : dialogs) {
    SCOPED_TRACE(name);
    WhenShown([](QDialog& dialog) {
      EXPECT_EQ(Unlabelled(dialog), QStringList());
      const auto* const node = QAccessible::queryAccessibleInterface(&dialog);
      EXPECT_EQ(node->role(), QAccessible::Dialog);
      EXPECT_FALSE(node->text(QAccessible::Name).isEmpty());
    });
    show();
    EXPECT_TRUE(answers.AreUsedUp());
  }
}

}  // namespace
}  // namespace feedloom
