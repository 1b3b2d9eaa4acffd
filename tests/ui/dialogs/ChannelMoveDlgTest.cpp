// The dialogs that move a channel, and that tell what it is.
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

#include "skin/Keys.h"
#include "store/Folders.h"
#include "ui/dialogs/DialogFixture.h"
#include "vxctrl/QtText.h"

namespace feedloom {
namespace {

class ChannelDialogs : public DialogFixture {
 protected:
  // The channel's address is subscribed in Mirror, too.
  ChannelDialogs() { frame.db.AddChannelWithPosts(mirror_, "Daily", 0); }
  ChannelFacts Daily() const {
    return {.id = daily_,
            .title = "Daily",
            .xmlLink = "http://example.com/Daily",
            .folderId = news_,
            .folderName = "News"};
  }
  static void Choose(QDialog& dialog, const QString& folder) {
    auto* const box = dialog.findChild<QComboBox*>();
    box->setCurrentIndex(box->findText(folder));
  }
  std::string FolderOfDaily() {
    return frame.db.Value("select channel_folderID from TB_CHANNEL where channel_id = " +
                          std::to_string(daily_));
  }

  int news_ = AddFolder(frame.GetStore(), "News", 1);
  int mirror_ = AddFolder(frame.GetStore(), "Mirror", 2);
  int sports_ = AddFolder(frame.GetStore(), Korean("운동"), 3);
  int daily_ = frame.db.AddChannelWithPosts(news_, "Daily", 2);
};

TEST_F(ChannelDialogs, AChannelGoesToAFolderThatHasNotItsAddress) {
  WhenShown([this](QDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "그룹");
    EXPECT_EQ(dialog.findChild<QLabel*>()->text(), "그룹 선택");
    EXPECT_EQ(dialog.findChild<QComboBox*>()->currentIndex(), -1);
    Click(dialog, "확인");
    for (const char* folder : {"News", "Mirror"}) {
      Choose(dialog, folder);
      Click(dialog, "확인");
    }
    EXPECT_EQ(FolderOfDaily(), std::to_string(news_));
    Choose(dialog, "운동");
    Press(dialog, Qt::Key_Return);
  });
  ShowChannelMove(frame, parent.get(), Daily());
  EXPECT_EQ(Messages(), (Keys{kTextMoveEmpty, kTextAddChannelDuplicate, kTextAddChannelDuplicate}));
  EXPECT_EQ(FolderOfDaily(), std::to_string(sports_));
  EXPECT_EQ(frame.moves, (std::vector<std::pair<int, int>>{{daily_, sports_}}));
}

TEST_F(ChannelDialogs, AFolderThatWasDeletedMeanwhileIsNoPlaceToGo) {
  WhenShown([this](QDialog& dialog) {
    Choose(dialog, "운동");
    DeleteFolder(frame.GetStore(), sports_);
    Click(dialog, "확인");
    EXPECT_EQ(dialog.findChild<QComboBox*>()->findText("운동"), -1);
  });
  ShowChannelMove(frame, parent.get(), Daily());
  EXPECT_EQ(Messages(), Keys{kTextMoveEmpty});
  EXPECT_EQ(FolderOfDaily(), std::to_string(news_));
}

TEST_F(ChannelDialogs, AMoveThatCannotBeStoredIsReported) {
  frame.db.Sql(
      "create trigger no before update on TB_CHANNEL begin select raise(abort, 'no'); end");
  WhenShown([](QDialog& dialog) {
    Choose(dialog, "운동");
    Click(dialog, "확인");
    EXPECT_TRUE(dialog.isVisible());
    Click(dialog, "취소");
  });
  ShowChannelMove(frame, parent.get(), Daily());
  EXPECT_EQ(Messages(), Keys{kTextMoveError});
  EXPECT_TRUE(frame.moves.empty());
}

TEST_F(ChannelDialogs, AStoreThatIsLockedIsReportedAndTheChoiceStays) {
  WhenShown([this](QDialog& dialog) {
    Choose(dialog, "운동");
    {
      const ForeignLock lock(frame.db.DbPath());
      Click(dialog, "확인");
    }
    EXPECT_EQ(Messages(), Keys{kTextMoveError});
    Click(dialog, "확인");
    EXPECT_FALSE(dialog.isVisible());
  });
  ShowChannelMove(frame, parent.get(), Daily());
  EXPECT_EQ(FolderOfDaily(), std::to_string(sports_));
}

TEST_F(ChannelDialogs, TheInformationIsShownWholeAndCannotBeChanged) {
  ChannelFacts facts = Daily();
  facts.title = std::string(10'000, 'x');
  facts.folderName = Korean("운동");
  WhenShown([&](QDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "채널 정보");
    QStringList rows;
    const auto labels = dialog.findChildren<QLabel*>();
    for (auto* const label : labels) {
      auto* const box = qobject_cast<QLineEdit*>(label->buddy());
      EXPECT_TRUE(box->isReadOnly());
      rows << label->text() << box->text();
    }
    EXPECT_EQ(rows, (QStringList{"채널", QString(10'000, 'x'), "주소", "http://example.com/Daily",
                                 "그룹 이름", "운동"}));
    EXPECT_EQ(dialog.findChildren<CButtonEx*>().size(), 1);
    EXPECT_LT(dialog.width(), 600);
    Press(dialog, Qt::Key_Return);
    EXPECT_FALSE(dialog.isVisible());
  });
  ShowChannelInfo(frame, parent.get(), facts);
}

}  // namespace
}  // namespace feedloom
