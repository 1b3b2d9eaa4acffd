// The dialogs that ask for the name of a folder, a cabinet or a channel.
#include <QLabel>
#include <QLineEdit>

#include "skin/Keys.h"
#include "store/Cabinets.h"
#include "store/Channels.h"
#include "store/Folders.h"
#include "ui/dialogs/DialogFixture.h"

namespace feedloom {
namespace {

class NameDialogs : public DialogFixture {
 protected:
  // Tries each name in turn, and confirms it; the dialog is to be open until the last.
  void WhenShownTry(const QStringList& names) {
    WhenShown([names](QDialog& dialog) {
      for (const QString& name : names) {
        EXPECT_TRUE(dialog.isVisible());
        dialog.findChild<QLineEdit*>()->setText(name);
        Press(dialog, Qt::Key_Return);
      }
    });
  }
  void WhenShownCancel() {
    WhenShown([](QDialog& dialog) {
      dialog.findChild<QLineEdit*>()->setText("Changed");
      Click(dialog, "취소");
    });
  }
  // Looks at a dialog, and cancels it.
  void WhenShownExpect(const QString& title, const QString& label, const QString& text) {
    WhenShown([=](QDialog& dialog) {
      EXPECT_EQ(dialog.windowTitle(), title);
      EXPECT_EQ(dialog.findChild<QLabel*>()->text(), label);
      auto* const box = dialog.findChild<QLineEdit*>();
      EXPECT_EQ(box->text(), text);
      EXPECT_EQ(box->selectedText(), text);
      EXPECT_TRUE(box->hasFocus());
      Press(dialog, Qt::Key_Escape);
    });
  }
  std::string Value(const std::string& sql) { return frame.db.Value(sql); }

  int news_ = AddFolder(frame.GetStore(), "News", 4);
  int daily_ = frame.db.AddChannelWithPosts(news_, "Daily", 1);
};

TEST_F(NameDialogs, AFolderIsAddedBehindAllOthersAndToTheTree) {
  WhenShownTry({"", "  ", "보관함", "News", " Tom &amp; Jerry's (%s) "});
  ShowGroupAdd(frame, parent.get());
  EXPECT_EQ(Messages(),
            (Keys{kTextGroupEmpty, kTextGroupEmpty, kTextGroupDuplicate, kTextGroupDuplicate}));
  ASSERT_EQ(frame.addedFolders.size(), 1U);
  const FolderRow& added = frame.addedFolders.front();
  EXPECT_EQ(added.name, "Tom & Jerry's (%s)");
  EXPECT_EQ(added.order, 5);
  EXPECT_EQ(Value("select folder_name || folder_order from TB_FOLDER where folder_id = " +
                  std::to_string(added.id)),
            added.name + "5");
}

TEST_F(NameDialogs, AFolderThatCannotBeStoredIsReportedAndTheDialogStays) {
  frame.db.Sql("drop table TB_FOLDER");
  WhenShownTry({"\u200B", "One", "Two"});
  ShowGroupAdd(frame, parent.get());
  EXPECT_EQ(Messages(), (Keys{kTextGroupEmpty, kTextGroupError, kTextGroupError}));
  EXPECT_TRUE(frame.addedFolders.empty());
}

TEST_F(NameDialogs, ACabinetThatCannotBeStoredIsReported) {
  AddCabinet(frame.GetStore(), "Keep", 7);
  frame.db.Sql("drop table TB_SCRAP_POST");
  WhenShownTry({"Box"});
  ShowCabinetAdd(frame, parent.get());
  EXPECT_EQ(Messages(), Keys{kTextCabinetError});
  EXPECT_EQ(frame.db.Count("TB_SCRAP_CHANNEL"), 1);
}

TEST_F(NameDialogs, AnOldNameThatLooksLikeMarkupIsStillTheOldOne) {
  WhenShownTry({"&lt;b"});
  AskGroupName(frame, parent.get(), "&lt;b");
  EXPECT_EQ(Messages(), Keys{kTextGroupDuplicate});
}

TEST_F(NameDialogs, ACabinetIsAddedBehindAllOthersAndToTheTree) {
  AddCabinet(frame.GetStore(), "Keep", 7);
  WhenShownTry({"", "보관함", "Keep", "It's"});
  ShowCabinetAdd(frame, parent.get());
  EXPECT_EQ(Messages(), (Keys{kTextCabinetEmpty, kTextCabinetDuplicate, kTextCabinetDuplicate}));
  ASSERT_EQ(frame.addedCabinets.size(), 1U);
  EXPECT_EQ(frame.addedCabinets.front().title, "It's");
  EXPECT_EQ(Value("select scrap_channel_order from TB_SCRAP_CHANNEL where "
                  "scrap_channel_title = 'It''s'"),
            "8");
}

TEST_F(NameDialogs, ANewNameIsGivenToTheCaller) {
  const ChannelFacts daily{
      .id = daily_, .title = "Daily", .xmlLink = {}, .folderId = news_, .folderName = "News"};
  WhenShownTry({"", "News", "보관함", "Press"});
  EXPECT_EQ(AskGroupName(frame, parent.get(), "News"), "Press");
  WhenShownTry({" ", "Daily", "보관함"});  // only a cabinet may not be called so
  EXPECT_EQ(AskChannelName(frame, parent.get(), daily), Korean("보관함"));
  AddCabinet(frame.GetStore(), "Keep", 1);
  WhenShownTry({"", "Keep", "보관함", "Daily"});
  EXPECT_EQ(AskCabinetName(frame, parent.get(), "Keep"), "Daily");
  EXPECT_EQ(Messages(),
            (Keys{kTextGroupEmpty, kTextGroupDuplicate, kTextGroupDuplicate,  // the folder
                  kTextGroupEmpty, kTextRenameDuplicate,                      // the channel
                  kTextGroupEmpty, kTextRenameDuplicate, kTextRenameDuplicate}));
  EXPECT_EQ(Value("select channel_title from TB_CHANNEL"), "Daily");
}

TEST_F(NameDialogs, EachBeginsWithTheOldNameAndItsOwnTexts) {
  WhenShownExpect("그룹 이름 변경", "새 그룹 이름", "News");
  AskGroupName(frame, parent.get(), "News");
  WhenShownExpect("채널 이름 변경", "새 채널 이름", "똠방각하");
  AskChannelName(frame, parent.get(),
                 {.id = 1, .title = Korean("똠방각하"), .xmlLink = {}, .folderName = {}});
  WhenShownExpect("보관함 이름 변경", "새 보관함 이름", "Keep");
  AskCabinetName(frame, parent.get(), "Keep");
  WhenShownExpect("그룹", "그룹 이름", "");
  ShowGroupAdd(frame, parent.get());
  WhenShownExpect("보관함 추가", "보관함 이름", "");
  ShowCabinetAdd(frame, parent.get());
}

TEST_F(NameDialogs, CancelOrAParentThatGoesChangesNothing) {
  for (int i = 0; i < 3; ++i) WhenShownCancel();
  ShowGroupAdd(frame, parent.get());
  ShowCabinetAdd(frame, parent.get());
  EXPECT_EQ(AskGroupName(frame, parent.get(), "News"), std::nullopt);
  WhenShown([this](QDialog&) { parent.reset(); });
  EXPECT_EQ(AskCabinetName(frame, parent.get(), "Keep"), std::nullopt);
  EXPECT_EQ(Value("select group_concat(folder_name) from TB_FOLDER"), "News");
  EXPECT_EQ(frame.db.Count("TB_SCRAP_CHANNEL"), 0);
  EXPECT_TRUE(frame.addedFolders.empty() && frame.addedCabinets.empty());
}

}  // namespace
}  // namespace feedloom
