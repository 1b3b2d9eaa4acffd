// The toolbar above the page.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <algorithm>

#include "kit/ShippedSkin.h"
#include "ui/browser/CRSS_RightBottomToolBarWnd.h"

namespace feedloom {
namespace {

// The bar on screen above a line that has the keyboard.
class BrowserToolBar : public testing::Test {
 protected:
  BrowserToolBar() {
    window_.resize(700, 100);
    line_.move(0, 60);
    bar_.resize(640, bar_.sizeHint().height());
    window_.show();
    window_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
    line_.setFocus();
  }

  QAbstractButton& Button(const QString& name) const {
    const auto buttons = bar_.findChildren<QAbstractButton*>();
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

  // What has been commanded since the last call.
  std::vector<int> Commands() {
    std::vector<int> all;
    for (; !commands_.isEmpty(); commands_.removeFirst()) all.push_back(commands_[0][0].toInt());
    return all;
  }

  const ShippedSkin skin_{"ENG"};
  QWidget window_;
  CRSS_RightBottomToolBarWnd bar_{skin_.Get(), &window_};
  QLineEdit line_{&window_};
  QLineEdit& text_ = *bar_.findChild<QLineEdit*>();
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
  QTest::keyClicks(&text_, "news");
  EXPECT_TRUE(bar_.IsAddressEdited());
  line_.setFocus();
  EXPECT_FALSE(bar_.IsAddressEdited());
  bar_.FocusAddress();
  bar_.SetAddress("news");
  EXPECT_FALSE(bar_.IsAddressEdited());
}

}  // namespace
}  // namespace feedloom
