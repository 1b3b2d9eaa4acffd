// The exchange with the handset: its files are real, what the frame does with them is the test's.
#include <QLabel>
#include <QLineEdit>

#include "skin/Keys.h"
#include "ui/dialogs/DialogFixture.h"

namespace feedloom {
namespace {

constexpr const char* kStart = "동기화";
constexpr const char* kClose = "닫기";

class SyncDlg : public DialogFixture {
 protected:
  using Paths = std::vector<std::string>;

  SyncDlg() { frame.skin.SetHostValue(kValueWorkDir, frame.workFolder.Path()); }

  void Connect(const std::string& model) { frame.skin.SetHostValue(kValueModelName, model); }
  void LeaveHandsetList() { frame.workFolder.Write("Skyfold_ppc.opml", "<opml/>"); }

  void Show(DialogAnswers::Deed deed) {
    WhenShown(std::move(deed));
    ShowSync(frame, parent.get());
  }
  void EndMerge(const std::optional<ImportSums>& sums) {
    ASSERT_TRUE(frame.endMerge);
    std::exchange(frame.endMerge, nullptr)(sums);
  }

  static QString Model(QDialog& dialog) { return dialog.findChild<QLineEdit*>()->text(); }
  static QString Said(QDialog& dialog) { return dialog.findChildren<QLabel*>().last()->text(); }
  static QStringList Enabled(QDialog& dialog) {
    QStringList names;
    for (auto* const button : dialog.findChildren<CButtonEx*>()) {
      if (button->isEnabled()) names << button->text();
    }
    return names;
  }
};

TEST_F(SyncDlg, WithoutAHandsetItCanOnlyBeClosed) {
  LeaveHandsetList();
  Show([](QDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "핸드셋과 동기화");
    EXPECT_EQ(Model(dialog), "연결된 핸드셋이 없습니다.");
    EXPECT_EQ(Enabled(dialog), QStringList{kClose});
    Press(dialog, Qt::Key_Return);
    EXPECT_FALSE(dialog.isVisible());
  });
  EXPECT_EQ(frame.exports, Paths{});
  EXPECT_EQ(frame.merges, Paths{});
}

TEST_F(SyncDlg, NothingHappensBeforeTheUserWantsIt) {
  Connect("한빛 3");
  LeaveHandsetList();
  Show([](QDialog& dialog) {
    EXPECT_EQ(Model(dialog), "한빛 3");
    EXPECT_TRUE(Said(dialog).startsWith("채널 목록을 핸드셋에 보내고"));
    EXPECT_EQ(Enabled(dialog), (QStringList{kStart, kClose}));
    Press(dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
  });
  EXPECT_EQ(frame.exports, Paths{});
  EXPECT_EQ(frame.merges, Paths{});
}

TEST_F(SyncDlg, TheListGoesAloneWhenTheHandsetHasLeftNone) {
  Connect("H3");
  frame.nextExport = 12;
  const char* const text = "핸드셋과 동기화했습니다: 보낸 채널 12, 받은 채널 0";
  Show([&](QDialog& dialog) {
    Press(dialog, Qt::Key_Return);
    EXPECT_EQ(Said(dialog), text);
    EXPECT_EQ(Enabled(dialog), (QStringList{kStart, kClose}));
  });
  EXPECT_EQ(frame.exports, Paths{frame.workFolder.File("Skyfold_pc.opml")});
  EXPECT_EQ(frame.merges, Paths{});
  EXPECT_EQ(frame.messages, std::vector{Korean(text)});
}

TEST_F(SyncDlg, AListThatTheHandsetHasLeftIsMergedEachTime) {
  Connect("H3");
  frame.nextExport = 7;
  LeaveHandsetList();
  const struct {
    std::optional<ImportSums> sums;
    const char* text;
  } ends[] = {
      {ImportSums{.added = 5, .present = 2, .leftOut = 1},
       "핸드셋과 동기화했습니다: 보낸 채널 7, 받은 채널 5"},
      {std::nullopt, "채널 7개를 핸드셋에 보냈지만, 핸드셋이 남긴 목록은 가져오지 못했습니다."},
      {ImportSums(), "핸드셋과 동기화했습니다: 보낸 채널 7, 받은 채널 0"},
  };
  Show([&](QDialog& dialog) {
    for (const auto& [sums, text] : ends) {
      Click(dialog, kStart);
      EXPECT_EQ(Said(dialog), "동기화하는 중입니다.");
      EXPECT_EQ(Enabled(dialog), QStringList{kClose});
      Press(dialog, Qt::Key_Return);  // once too often
      EndMerge(sums);
      EXPECT_EQ(Said(dialog), text);
      EXPECT_EQ(dialog.focusWidget()->accessibleDescription(), text);
      EXPECT_EQ(frame.messages.back(), Korean(text));
      EXPECT_EQ(Enabled(dialog), (QStringList{kStart, kClose}));
    }
  });
  EXPECT_EQ(frame.exports, Paths(3, frame.workFolder.File("Skyfold_pc.opml")));
  EXPECT_EQ(frame.merges, Paths(3, frame.workFolder.File("Skyfold_ppc.opml")));
  EXPECT_EQ(frame.messages.size(), 3);
}

TEST_F(SyncDlg, AListThatCannotBeWrittenEndsItAndCanBeTriedAgain) {
  Connect("H3");
  frame.nextExport = std::nullopt;
  LeaveHandsetList();
  Show([&](QDialog& dialog) {
    Click(dialog, kStart);
    EXPECT_EQ(Said(dialog), "핸드셋으로 보낼 목록을 저장하지 못했습니다.");
    EXPECT_EQ(frame.merges, Paths{});
    frame.nextExport = 1;
    Click(dialog, kStart);
    EXPECT_EQ(frame.merges.size(), 1);
  });
  EXPECT_EQ(frame.messages, std::vector<std::string>{});
}

TEST_F(SyncDlg, TheHostHearsOfTheEndAfterTheDialogWasClosed) {
  Connect("H3");
  LeaveHandsetList();
  Show([](QDialog& dialog) {
    Click(dialog, kStart);
    Click(dialog, kClose);
    EXPECT_FALSE(dialog.isVisible());
  });
  EndMerge(ImportSums{.added = 2});
  EXPECT_EQ(frame.messages,
            std::vector{Korean("핸드셋과 동기화했습니다: 보낸 채널 0, 받은 채널 2")});
}

}  // namespace
}  // namespace feedloom
