#include <QLabel>
#include <QLineEdit>

#include "ui/dialogs/DialogFixture.h"

namespace feedloom {
namespace {

using SearchDlg = DialogFixture;

TEST_F(SearchDlg, GivesTheWordInTheModulesCodePage) {
  WhenShown([](QDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "검색");
    EXPECT_EQ(dialog.findChild<QLabel*>()->text(), "검색어");
    dialog.findChild<QLineEdit*>()->setText("똠방각하 feeds");
    Click(dialog, "확인");
  });
  EXPECT_EQ(AskSearchWord(frame, parent.get()), Korean("똠방각하 feeds"));
  EXPECT_EQ(Messages(), Keys{});
}

TEST_F(SearchDlg, AnEmptyWordIsRefusedAndTheKeyboardGoesBackToTheBox) {
  WhenShown([&](QDialog& dialog) {
    Click(dialog, "확인");
    EXPECT_EQ(Messages(), Keys{"RSS_SEARCH_EMPTY_MSG"});
    EXPECT_TRUE(dialog.isVisible());
    QTest::keyClicks(dialog.focusWidget(), "news");
    Press(dialog, Qt::Key_Return);
  });
  EXPECT_EQ(AskSearchWord(frame, parent.get()), "news");
  EXPECT_EQ(Messages().size(), 1);
}

TEST_F(SearchDlg, CancelOrAParentThatGoesGivesNothing) {
  WhenShown([&](QDialog& dialog) { Click(dialog, "취소"); });
  EXPECT_EQ(AskSearchWord(frame, parent.get()), std::nullopt);
  WhenShown([&](QDialog&) { parent.reset(); });
  EXPECT_EQ(AskSearchWord(frame, parent.get()), std::nullopt);
  EXPECT_EQ(Messages(), Keys{});
}

}  // namespace
}  // namespace feedloom
