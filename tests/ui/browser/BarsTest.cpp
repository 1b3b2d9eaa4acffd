// The two bars of the pane: the toolbar above the page, and the one below it that finds a word.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <algorithm>

#include "kit/ShippedSkin.h"
#include "ui/browser/CRSS_RightBottomToolBarWnd.h"
#include "ui/browser/FindBar.h"

namespace feedloom {
namespace {

// A bar on screen above a line that has the keyboard.
template <typename Bar>
class BarTest : public testing::Test {
 protected:
  BarTest() {
    window_.resize(700, 100);
    line_.move(0, 60);
    bar_.resize(640, bar_.sizeHint().height());
    window_.show();
    window_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
    line_.setFocus();
  }

  QAbstractButton& Button(const QString& name) const {
    const auto buttons = bar_.template findChildren<QAbstractButton*>();
    return **std::ranges::find(buttons, name, &QWidget::accessibleName);
  }
  void Click(const QString& name) { QTest::mouseClick(&Button(name), Qt::LeftButton); }
  static void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
  }
  static void HoldKey(int key) {
    QKeyEvent held(QEvent::KeyPress, key, Qt::NoModifier, {}, true);
    QApplication::sendEvent(QApplication::focusWidget(), &held);
  }

  const ShippedSkin skin_{"ENG"};
  QWidget window_;
  Bar bar_{skin_.Get(), &window_};
  QLineEdit line_{&window_};
  QLineEdit& text_ = *bar_.template findChild<QLineEdit*>();
};

class BrowserToolBar : public BarTest<CRSS_RightBottomToolBarWnd> {
 protected:
  // What has been commanded since the last call.
  std::vector<int> Commands() {
    std::vector<int> all;
    for (; !commands_.isEmpty(); commands_.removeFirst()) all.push_back(commands_[0][0].toInt());
    return all;
  }
  QSignalSpy commands_{&bar_, &CRSS_RightBottomToolBarWnd::Commanded};
  QSignalSpy leavings_{&bar_, &CRSS_RightBottomToolBarWnd::AddressLeft};
  const QStringList names_ = {"Back", "Forward",         "Stop", "Reload the page",
                              "Go",   "Add this channel"};
};

TEST_F(BrowserToolBar, ButtonsCommandUnlessDisabledAndLeaveTheKeyboardWhereItIs) {
  bar_.Enable(kBrowserNext, false);
  for (const QString& name : names_) Click(name);
  EXPECT_EQ(Commands(), std::vector<int>({kBrowserBack, kBrowserStop, kBrowserRefresh, kBrowserGo,
                                          kBrowserFeed}));
  bar_.Enable(kBrowserNext, true);
  Click("Forward");
  EXPECT_EQ(Commands(), std::vector<int>({kBrowserNext}));
  EXPECT_TRUE(line_.hasFocus());
}

TEST_F(BrowserToolBar, TabWalksInReadingOrderAndKeysInTheAddressGoOrLeaveOncePerPress) {
  Button("Back").setFocus(Qt::TabFocusReason);
  QString walked;
  for (int i = 0; i < 7; ++i, Press(Qt::Key_Tab))
    walked += QApplication::focusWidget()->accessibleName() + ", ";
  EXPECT_EQ(walked, "Back, Forward, Stop, Reload the page, Address, Go, Add this channel, ");
  bar_.FocusAddress();
  QTest::keyClicks(&text_, "example.org");
  EXPECT_EQ(bar_.Address(), "example.org");
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) Press(key);
  for (const int key : {Qt::Key_Return, Qt::Key_Escape}) HoldKey(key);
  Button("Back").setFocus();
  Press(Qt::Key_Escape);
  EXPECT_EQ(Commands(), std::vector<int>({kBrowserGoByKey, kBrowserGoByKey}));
  EXPECT_EQ(leavings_.count(), 1);
}

TEST_F(BrowserToolBar, KnowsWhetherTheUserIsTypingAnAddress) {
  bar_.FocusAddress();
  EXPECT_FALSE(bar_.IsAddressEdited());
  QTest::keyClicks(&text_, "news");
  EXPECT_TRUE(bar_.IsAddressEdited());
  line_.setFocus();
  EXPECT_FALSE(bar_.IsAddressEdited());
  bar_.FocusAddress();
  bar_.SetAddress("news");
  EXPECT_FALSE(bar_.IsAddressEdited());
}

class FindBarTest : public BarTest<FindBar> {
 protected:
  FindBarTest() {
    EXPECT_FALSE(bar_.isVisible());
    bar_.Open();
  }
  // What has been wanted since the last call, "<word" backward and ">word" forward.
  QString Wants() {
    QString all;
    for (; !wants_.isEmpty(); wants_.removeFirst())
      all += (wants_[0][1].toBool() ? "<" : ">") + wants_[0][0].toString();
    return all;
  }
  // What the user and a screen reader are told of a result.
  QString Told(int active, int all) {
    bar_.SetResult(active, all);
    EXPECT_EQ(label_.text(), text_.accessibleDescription());
    EXPECT_EQ(label_.text(), label_.toolTip());
    return label_.text();
  }
  const QLabel& label_ = *bar_.findChild<QLabel*>();
  QSignalSpy wants_{&bar_, &FindBar::Wanted};
  QSignalSpy closings_{&bar_, &FindBar::Closed};
};

TEST_F(FindBarTest, FindsAsTheUserTypesAndByKeysAndTellsTheResult) {
  QTest::keyClicks(&text_, "at");
  Press(Qt::Key_Backspace);
  EXPECT_EQ(Told(2, 17), "2 of 17");
  EXPECT_EQ(Told(0, 0), "Nothing found");
  Press(Qt::Key_Return);
  Press(Qt::Key_Enter, Qt::ShiftModifier);
  HoldKey(Qt::Key_Return);
  for (const char* name : {"Find next", "Find previous"}) Click(name);
  Press(Qt::Key_Backspace);
  EXPECT_EQ(label_.text(), "");
  EXPECT_EQ(Wants(), ">a>at>a>a<a>a<a>");
  Press(Qt::Key_Escape);
  bar_.Open();
  Click("Close the search");
  EXPECT_FALSE(bar_.isVisible());
  EXPECT_EQ(closings_.count(), 2);
}

}  // namespace
}  // namespace feedloom
