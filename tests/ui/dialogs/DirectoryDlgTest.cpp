// The dialog that searches the web directory, with a real service.
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>

#include "skin/Keys.h"
#include "ui/dialogs/DialogFixture.h"
#include "ui/dialogs/DirectoryModel.h"
#include "ui/list/DirectoryService.h"
#include "vxctrl/CVxListCtrl.h"
#include "vxctrl/SkinText.h"

namespace feedloom {
namespace {

constexpr const char* kSearch = "검색";
constexpr const char* kAdd = "채널 추가";
constexpr const char* kClose = "닫기";

class DirectoryDlg : public DialogFixture {
 protected:
  DirectoryDlg() { frame.directoryService = service.Address(); }

  void Show() { ShowDirectory(frame, parent.get()); }
  // The dialog, and what is done in it.
  void ShowAnd(DialogAnswers::Deed deed) {
    WhenShown(std::move(deed));
    Show();
    EXPECT_TRUE(answers.AreUsedUp());
  }

  static CVxListCtrl& List(QDialog& dialog) { return *dialog.findChild<CVxListCtrl*>(); }
  static QLineEdit& Word(QDialog& dialog) { return *dialog.findChild<QLineEdit*>(); }
  static int Rows(QDialog& dialog) { return List(dialog).model()->rowCount(); }
  static std::string Cell(QDialog& dialog, int row, int column) {
    return List(dialog).model()->index(row, column).data().toString().toStdString();
  }
  // What the line below the list says.
  static std::string Line(QDialog& dialog) {
    return dialog.findChildren<QLabel*>()[0]->text().toStdString();
  }
  static bool CanPress(QDialog& dialog, const QString& text) {
    for (const auto* button : dialog.findChildren<CButtonEx*>()) {
      if (button->text() == text) return button->isEnabled();
    }
    return false;
  }

  void Begin(QDialog& dialog) {
    Word(dialog).setText("word");
    Word(dialog).setFocus();
    Press(dialog, Qt::Key_Return);
    EXPECT_FALSE(List(dialog).isEnabled());
  }
  void WaitForEnd(QDialog& dialog) {
    EXPECT_TRUE(QTest::qWaitFor([&] { return List(dialog).isEnabled(); }));
  }
  void Search(QDialog& dialog) {
    Begin(dialog);
    WaitForEnd(dialog);
  }
  static void Select(QDialog& dialog, int row) {
    List(dialog).setFocus();
    List(dialog).setCurrentIndex(List(dialog).model()->index(row, 0));
  }
  std::string Text(const char* key) const { return SkinText(frame.GetSkin(), key).toStdString(); }

  DirectoryService service;
};

TEST_F(DirectoryDlg, ListsWhatTheDirectoryKnowsAsPlainText) {
  service.ServeTwoPages();
  ShowAnd([&](QDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "채널 디렉터리");
    EXPECT_TRUE(Word(dialog).hasFocus());
    EXPECT_EQ(Word(dialog).accessibleName(), "검색어");
    EXPECT_EQ(List(dialog).accessibleName(), "찾은 채널");
    EXPECT_EQ(Line(dialog), "");
    Search(dialog);
    EXPECT_EQ(Rows(dialog), 50);
    EXPECT_EQ(Cell(dialog, 6, 0), "Title 7");
    EXPECT_EQ(Cell(dialog, 6, 1), "About 7");
    EXPECT_EQ(Cell(dialog, 6, 2), "http://feed/7");
    EXPECT_EQ(Line(dialog), "전체 73건 중 50건 표시");
    dialog.resize(900, 500);
    QApplication::processEvents();
    EXPECT_EQ(List(dialog).header()->length(), List(dialog).viewport()->width());
  });
}

TEST_F(DirectoryDlg, TakesFurtherPagesAtTheEndOfTheList) {
  service.ServeTwoPages();
  service.Fail(2);
  ShowAnd([&](QDialog& dialog) {
    Search(dialog);
    Select(dialog, 0);
    Press(dialog, Qt::Key_End);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Line(dialog) == Text(kTextDirectoryFailed); }));
    EXPECT_EQ(Rows(dialog), 50);
    service.ServeTwoPages();
    List(dialog).verticalScrollBar()->triggerAction(QAbstractSlider::SliderToMaximum);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Rows(dialog) == 73; }));
    EXPECT_EQ(Line(dialog), "전체 73건 중 73건 표시");
    EXPECT_EQ(List(dialog).SelectedRows(), std::vector{49});
    EXPECT_TRUE(List(dialog).hasFocus());
    Search(dialog);
    EXPECT_EQ(Rows(dialog), 50) << "the next search begins with an empty list";
  });
}

TEST_F(DirectoryDlg, AddsWhatIsSelectedAndStaysOpen) {
  service.Serve(1, 3, 1, 3);
  ShowAnd([&](QDialog& dialog) {
    Search(dialog);
    EXPECT_FALSE(CanPress(dialog, kAdd));
    Select(dialog, 0);
    Click(dialog, kAdd);
    Select(dialog, 1);
    Press(dialog, Qt::Key_Return);
    const QPoint third = List(dialog).visualRect(List(dialog).model()->index(2, 1)).center();
    QTest::mouseClick(List(dialog).viewport(), Qt::LeftButton, {}, third);
    QTest::mouseDClick(List(dialog).viewport(), Qt::LeftButton, {}, third);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(service.Requests(1), 1) << "Enter on a row is no search";
    Click(dialog, kClose);
    EXPECT_FALSE(dialog.isVisible());
  });
  EXPECT_EQ(frame.addedAddresses, (Keys{"http://feed/1", "http://feed/2", "http://feed/3"}));
}

TEST_F(DirectoryDlg, AFeedWithoutAnAddressCannotBeAdded) {
  service.ServeText(1, "[TO]1[HS][IT]t[IU]u[RT][RU][DT]20080501093045[ID]d[PO]0[QK]");
  ShowAnd([&](QDialog& dialog) {
    Search(dialog);
    Select(dialog, 0);
    EXPECT_FALSE(CanPress(dialog, kAdd));
    Press(dialog, Qt::Key_Return);
  });
  EXPECT_EQ(frame.addedAddresses, Keys());
}

TEST_F(DirectoryDlg, SaysWhenThereIsNothingAndWhenThereIsNoAnswer) {
  ShowAnd([&](QDialog& dialog) {
    service.ServeText(1, "[TO]0[QK]");
    Search(dialog);
    EXPECT_EQ(Line(dialog), Text(kTextDirectoryNothing));
    service.Fail(1);
    Search(dialog);
    EXPECT_EQ(Line(dialog), Text(kTextDirectoryFailed));
    EXPECT_EQ(Rows(dialog), 0);
  });
}

TEST_F(DirectoryDlg, EscapeGivesUpASearchAndThenClosesTheDialog) {
  service.Serve(1, 73, 1, 50);
  service.Hang(2);
  ShowAnd([&](QDialog& dialog) {
    Search(dialog);
    Select(dialog, 3);
    Press(dialog, Qt::Key_End);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !List(dialog).isEnabled(); }));
    EXPECT_EQ(Line(dialog), Text(kTextDirectorySearching));
    QWidget* const under = dialog.childAt(List(dialog).geometry().center());
    EXPECT_EQ(under->cursor().shape(), Qt::WaitCursor);
    EXPECT_FALSE(CanPress(dialog, kAdd));
    Press(dialog, Qt::Key_Return);
    QTest::mouseDClick(under, Qt::LeftButton);
    Press(dialog, Qt::Key_Escape);
    EXPECT_TRUE(dialog.isVisible() && List(dialog).isEnabled());
    EXPECT_TRUE(List(dialog).hasFocus());
    EXPECT_EQ(Line(dialog), "전체 73건 중 50건 표시");
    service.Hang(1);
    Begin(dialog);
    Press(dialog, Qt::Key_Escape);
    EXPECT_EQ(Line(dialog), "");
    Press(dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
  });
  EXPECT_EQ(frame.addedAddresses, Keys());
  ShowAnd([&](QDialog& dialog) { Begin(dialog); });  // closed while it runs
}

TEST_F(DirectoryDlg, NeedsAWord) {
  ShowAnd([&](QDialog& dialog) {
    Click(dialog, kSearch);
    EXPECT_TRUE(dialog.isVisible() && List(dialog).isEnabled());
  });
  EXPECT_EQ(Messages(), Keys{kTextSearchEmpty});
  frame.whileAsking = [&] { parent.reset(); };
  ShowAnd([&](QDialog& dialog) { Press(dialog, Qt::Key_Return); });
  EXPECT_EQ(parent, nullptr);
}

TEST(DirectoryModelTest, TooltipsShowMarkupAndDoNotFollowIt) {
  DirectoryModel model(CodePage::Korean(), {}, nullptr);
  PostRow row;
  row.feedUrl = "<img src='x'>";
  model.Append({row});
  EXPECT_EQ(model.index(0, 2).data(Qt::ToolTipRole), "<qt>&lt;img src='x'&gt;");
}

TEST(DirectoryModelTest, DescriptionsLoseTheirTags) {
  const struct {
    const char* text;
    const char* plain;
  } cases[] = {
      {"plain", "plain"},
      {"<b>bold</b>ness", "boldness"},
      {"one<br/>two<P class='x'>three", "one two three"},
      {"1 < 2 <3> & 4 > 3", "1 < 2 <3> & 4 > 3"},
      {"<!-- note --><script>alert(1)</script>", "  alert(1) "},
      {"open <img src=", "open <img src="},
      {"<", "<"},
      {"", ""},
  };
  for (const auto& [text, plain] : cases) EXPECT_EQ(WithoutTags(text), plain);
}

TEST(DirectoryModelTest, TagsWithoutEndCostLittle) {
  std::string text;
  for (int i = 0; i < 1'000'000; ++i) text += "<a";
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(WithoutTags(text), text);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

}  // namespace
}  // namespace feedloom
