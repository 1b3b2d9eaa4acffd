#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

#include "kit/ShippedSkin.h"
#include "ui/list/CRSS_RightTopToolBarWnd.h"
#include "vxctrl/CVxComboBox.h"

namespace feedloom {
namespace {

class SearchToolBarTest : public testing::Test {
 protected:
  SearchToolBarTest() {
    bar_.resize(bar_.sizeHint());
    bar_.show();
    bar_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&bar_));
  }
  QImage ResultArea() { return bar_.grab(QRect(312, 0, bar_.width() - 312, 40)).toImage(); }

  const ShippedSkin skin_;
  CRSS_RightTopToolBarWnd bar_{skin_.Get(), nullptr};
  QComboBox& scope_ = *bar_.findChild<QComboBox*>();
  QLineEdit& word_ = *bar_.findChild<QLineEdit*>();
  QAbstractButton& button_ = *bar_.findChild<QAbstractButton*>();
};

TEST_F(SearchToolBarTest, HasTheSkinsSizeInWhichTheWordGivesWayBeforeTheScope) {
  EXPECT_EQ(bar_.sizeHint(), QSize(508, 40));
  const int right = button_.geometry().right();
  for (const auto& [width, scope, word] : {std::tuple(508, 84, 172),
                                           {right + 9, 84, 172},
                                           {right - 1, 84, 162},
                                           {172, 76, 40},
                                           {100, 40, 40}}) {
    bar_.resize(width, 40);
    EXPECT_EQ(scope_.width(), scope) << width;
    EXPECT_EQ(word_.width(), word) << width;
    EXPECT_EQ(scope_.x(), 8);
    EXPECT_EQ(word_.x(), 12 + scope);
    EXPECT_EQ(button_.x(), 16 + scope + word);
    EXPECT_EQ(word_.y(), (40 - word_.height()) / 2);
  }
}

TEST_F(SearchToolBarTest, SearchesTheWebUntilTheUserChoosesOtherwise) {
  EXPECT_EQ(scope_.currentText(), "웹");
  EXPECT_TRUE(bar_.Scope() == SearchScope::Web);
  QTest::keyClick(&scope_, Qt::Key_Down);
  EXPECT_EQ(scope_.currentText(), "로컬");
  EXPECT_TRUE(bar_.Scope() == SearchScope::Local);
}

TEST_F(SearchToolBarTest, ButtonAndEnterSearchTheWordAndEscapeLeavesIt) {
  const QSignalSpy searches(&bar_, &CRSS_RightTopToolBarWnd::SearchRequested);
  const QSignalSpy escapes(&bar_, &CRSS_RightTopToolBarWnd::EscapePressed);
  word_.setText("똠방각하");
  bar_.FocusWord();
  EXPECT_TRUE(word_.hasFocus() && word_.selectedText() == "똠방각하");
  EXPECT_EQ(bar_.Word(), CodePage::Korean().FromUtf8("똠방각하"));
  QTest::keyClick(&word_, Qt::Key_Return);
  QTest::keyClick(&word_, Qt::Key_Enter);
  QTest::mouseClick(&button_, Qt::LeftButton);
  QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
  QApplication::sendEvent(&word_, &held);
  EXPECT_EQ(searches.count(), 3);
  EXPECT_TRUE(word_.hasFocus() && escapes.empty());
  QTest::keyClick(&word_, Qt::Key_Escape);
  EXPECT_EQ(searches.count() + escapes.count(), 4);
}

TEST_F(SearchToolBarTest, ShowsACountOfOneOrMore) {
  const QImage bare = ResultArea();
  for (const auto& [count, text] :
       {std::pair(1, "검색결과 : 1건"), {0, ""}, {32, "검색결과 : 32건"}, {-1, ""}}) {
    bar_.SetResultCount(count);
    EXPECT_EQ(bar_.accessibleDescription(), text);
    EXPECT_EQ(word_.accessibleDescription(), text);
    EXPECT_EQ(ResultArea() == bare, *text == 0);
    EXPECT_EQ(ResultArea().copy(0, 0, 196, 12), bare.copy(0, 0, 196, 12)) << "it lies below";
  }
}

}  // namespace
}  // namespace feedloom
