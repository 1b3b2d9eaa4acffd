#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <algorithm>
#include <ostream>

#include "kit/ShippedSkin.h"
#include "ui/list/CRSS_RightTopToolBarWnd.h"

namespace feedloom {

void PrintTo(SearchScope scope, std::ostream* out) {
  *out << (scope == SearchScope::Web ? "Web" : "Local");
}

namespace {

// The toolbar on screen, in its own size.
class SearchToolBar : public testing::Test {
 protected:
  SearchToolBar() {
    bar_.resize(bar_.sizeHint());
    bar_.show();
    bar_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&bar_));
  }

  // What is painted behind the controls, from the place of the count on.
  QImage ResultArea() { return bar_.grab(QRect(312, 0, bar_.width() - 312, 40)).toImage(); }

  // The left edge and the upper edge of what differs.
  static QPoint FirstDifference(const QImage& one, const QImage& other) {
    QPoint corner(one.width(), one.height());
    for (int y = 0; y < one.height(); ++y) {
      for (int x = 0; x < one.width(); ++x) {
        if (one.pixel(x, y) == other.pixel(x, y)) continue;
        corner = {std::min(corner.x(), x), std::min(corner.y(), y)};
      }
    }
    return corner;
  }

  const ShippedSkin skin_;
  CRSS_RightTopToolBarWnd bar_{skin_.Get(), nullptr};
  QComboBox& scope_ = *bar_.findChild<QComboBox*>();
  QLineEdit& word_ = *bar_.findChild<QLineEdit*>();
  QAbstractButton& button_ = *bar_.findChild<QAbstractButton*>();
  const QSignalSpy searches_{&bar_, &CRSS_RightTopToolBarWnd::SearchRequested};
  const QSignalSpy leavings_{&bar_, &CRSS_RightTopToolBarWnd::WordLeft};
};

TEST_F(SearchToolBar, HasTheSkinsSizeAndTellsWhatItsControlsAre) {
  EXPECT_EQ(bar_.sizeHint(), QSize(508, 40));
}

TEST_F(SearchToolBar, SearchesTheWebUntilTheUserChoosesOtherwise) {
  EXPECT_EQ(scope_.currentText(), "웹");
  EXPECT_EQ(bar_.Scope(), SearchScope::Web);
  QTest::keyClick(&scope_, Qt::Key_Down);
  EXPECT_EQ(scope_.currentText(), "로컬");
  EXPECT_EQ(bar_.Scope(), SearchScope::Local);
}

TEST_F(SearchToolBar, ButtonAndEnterAskForASearchOfTheWord) {
  bar_.FocusWord();
  QTest::keyClicks(&word_, "news");
  QTest::keyClick(&word_, Qt::Key_Return);
  QTest::mouseClick(&button_, Qt::LeftButton);
  EXPECT_EQ(searches_.count(), 2);
  EXPECT_TRUE(word_.hasFocus());
  EXPECT_EQ(bar_.Word(), "news");

  QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
  QApplication::sendEvent(&word_, &held);
  EXPECT_EQ(searches_.count(), 2);
}

TEST_F(SearchToolBar, EscapeLeavesTheWordAndFocusSelectsIt) {
  word_.setText("똠방각하");
  bar_.FocusWord();
  EXPECT_EQ(word_.selectedText(), "똠방각하");
  QTest::keyClick(&word_, Qt::Key_Escape);
  EXPECT_EQ(leavings_.count(), 1);
  EXPECT_EQ(searches_.count(), 0);
  EXPECT_EQ(bar_.Word(), CodePage::Korean().FromUtf8("똠방각하"));
}

TEST_F(SearchToolBar, ShowsACountOfOneOrMore) {
  const QImage bare = ResultArea();
  bar_.SetResultCount(3);
  EXPECT_EQ(bar_.accessibleDescription(), "검색결과 : 3건");
  const QPoint corner = FirstDifference(ResultArea(), bare);
  EXPECT_NEAR(corner.x(), 0, 3);
  EXPECT_NEAR(corner.y(), 13, 4);
  for (const int none : {0, -1}) {
    bar_.SetResultCount(none);
    EXPECT_EQ(ResultArea(), bare);
  }
}

TEST_F(SearchToolBar, TheControlsGiveWayOnlyWhenTheyMust) {
  const int ownRight = button_.geometry().right();
  EXPECT_LT(ownRight, 312);
  bar_.resize(312, 40);
  EXPECT_EQ(button_.geometry().right(), ownRight);
  for (const int width : {250, 180}) {
    bar_.resize(width, 40);
    EXPECT_LT(button_.geometry().right(), width);
    EXPECT_LT(scope_.geometry().right(), word_.geometry().left());
    EXPECT_LT(word_.geometry().right(), button_.geometry().left());
  }
}

}  // namespace
}  // namespace feedloom
