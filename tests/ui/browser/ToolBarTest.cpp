#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <algorithm>
#include <vector>

#include "kit/ShippedSkin.h"
#include "ui/browser/CRSS_RightBottomToolBarWnd.h"

namespace feedloom {
namespace {

// The toolbar on screen, in its own size, above something else that takes the keyboard.
class BrowserToolBar : public testing::Test {
 protected:
  BrowserToolBar() {
    auto* const column = new QVBoxLayout(&window_);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(&bar_);
    column->addWidget(&page_);
    bar_.setFixedSize(bar_.sizeHint());
    window_.show();
    window_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
    page_.setFocus();
  }

  QAbstractButton& Button(const QString& name) const {
    const auto buttons = bar_.findChildren<QAbstractButton*>();
    const auto found = std::ranges::find(buttons, name, &QWidget::accessibleName);
    EXPECT_NE(found, buttons.end()) << name.toStdString();
    return **found;
  }

  // What has been commanded since the last call.
  std::vector<int> Commands() {
    std::vector<int> all;
    while (!commands_.isEmpty()) all.push_back(commands_.takeFirst().front().toInt());
    return all;
  }

  // From left to right.
  std::vector<QWidget*> Controls() const {
    auto children = bar_.findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    std::ranges::sort(children, {}, &QWidget::x);
    return {children.begin(), children.end()};
  }

  void HoldKey(int key) {
    QKeyEvent held(QEvent::KeyPress, key, Qt::NoModifier, {}, true);
    QApplication::sendEvent(&address_, &held);
  }

  const ShippedSkin skin_{"ENG"};
  QWidget window_;
  CRSS_RightBottomToolBarWnd bar_{skin_.Get(), &window_};
  QLineEdit page_{&window_};
  QLineEdit& address_ = *bar_.findChild<QLineEdit*>();
  QSignalSpy commands_{&bar_, &CRSS_RightBottomToolBarWnd::Commanded};
  QSignalSpy leavings_{&bar_, &CRSS_RightBottomToolBarWnd::AddressLeft};
};

TEST_F(BrowserToolBar, HasTheSkinsSizeAndTellsWhatItsControlsAreInReadingOrder) {
  EXPECT_EQ(bar_.sizeHint(), QSize(508, 40));
  QStringList names;
  for (const QWidget* control : Controls()) names += control->accessibleName();
  EXPECT_EQ(names, QStringList({"Back", "Forward", "Stop", "Reload the page", "Address", "Go",
                                "Add this channel"}));
}

TEST_F(BrowserToolBar, ButtonsCommandAndLeaveTheKeyboardWhereItIs) {
  for (const char* name :
       {"Back", "Forward", "Stop", "Reload the page", "Go", "Add this channel"}) {
    QTest::mouseClick(&Button(name), Qt::LeftButton);
  }
  EXPECT_EQ(Commands(), std::vector<int>({kBrowserBack, kBrowserNext, kBrowserStop, kBrowserRefresh,
                                          kBrowserGo, kBrowserFeed}));
  EXPECT_TRUE(page_.hasFocus());
}

TEST_F(BrowserToolBar, TabWalksItInReadingOrder) {
  const auto controls = Controls();
  controls.front()->setFocus(Qt::TabFocusReason);
  for (QWidget* control : controls) {
    EXPECT_EQ(QApplication::focusWidget(), control);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
}

TEST_F(BrowserToolBar, DisablesOneCommandsButton) {
  bar_.Enable(kBrowserNext, false);
  QTest::mouseClick(&Button("Forward"), Qt::LeftButton);
  QTest::mouseClick(&Button("Back"), Qt::LeftButton);
  EXPECT_EQ(Commands(), std::vector<int>({kBrowserBack}));
  bar_.Enable(kBrowserNext, true);
  QTest::mouseClick(&Button("Forward"), Qt::LeftButton);
  EXPECT_EQ(Commands(), std::vector<int>({kBrowserNext}));
}

TEST_F(BrowserToolBar, EnterGoesToTheAddressAndEscapeLeavesIt) {
  bar_.FocusAddress();
  QTest::keyClicks(&address_, "example.org");
  QTest::keyClick(&address_, Qt::Key_Return);
  EXPECT_EQ(Commands(), std::vector<int>({kBrowserGoByKey}));
  EXPECT_EQ(bar_.Address(), "example.org");
  QTest::keyClick(&address_, Qt::Key_Escape);
  EXPECT_EQ(leavings_.count(), 1);

  HoldKey(Qt::Key_Return);
  HoldKey(Qt::Key_Escape);
  EXPECT_EQ(Commands(), std::vector<int>());
  EXPECT_EQ(leavings_.count(), 1);
}

TEST_F(BrowserToolBar, ShowsTheBeginningOfALongAddress) {
  const QString address = "https://example.org/" + QString(500, 'a');
  bar_.SetAddress(address);
  EXPECT_EQ(address_.cursorPosition(), 0);

  bar_.FocusAddress();
  page_.setFocus();
  bar_.SetAddress(address);
  EXPECT_EQ(address_.cursorPosition(), 0);
}

TEST_F(BrowserToolBar, TheSameAddressLeavesASelectionAsItIs) {
  bar_.SetAddress("https://example.org/");
  bar_.FocusAddress();
  address_.setSelection(8, 7);
  bar_.SetAddress("https://example.org/");
  EXPECT_EQ(address_.selectedText(), "example");
  bar_.SetAddress("https://example.net/");
  EXPECT_EQ(address_.selectedText(), "");
}

TEST_F(BrowserToolBar, KnowsWhetherTheUserIsTypingAnAddress) {
  bar_.SetAddress("https://example.org/");
  bar_.FocusAddress();
  EXPECT_FALSE(bar_.IsAddressEdited());
  QTest::keyClicks(&address_, "news");
  EXPECT_TRUE(bar_.IsAddressEdited());

  QWidget other;
  other.show();
  other.activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&other));
  EXPECT_TRUE(bar_.IsAddressEdited());
  page_.setFocus();
  EXPECT_FALSE(bar_.IsAddressEdited());

  bar_.FocusAddress();
  EXPECT_TRUE(bar_.IsAddressEdited());
  bar_.SetAddress("news");
  EXPECT_FALSE(bar_.IsAddressEdited());
}

TEST_F(BrowserToolBar, TheAddressGivesWayFirstThenTheLastButtonsAreCut) {
  const int backLeft = Button("Back").x();
  for (const int width : {640, 400, 200}) {
    bar_.setFixedSize(width, 40);
    const auto controls = Controls();
    for (std::size_t i = 1; i < controls.size(); ++i) {
      EXPECT_LT(controls[i - 1]->geometry().right(), controls[i]->x());
    }
    EXPECT_EQ(Button("Back").x(), backLeft);
    EXPECT_EQ(Button("Add this channel").size(), QSize(32, 32));
    EXPECT_EQ(Button("Add this channel").geometry().right() < width, width > 300);
    EXPECT_GE(address_.width(), 60);
  }
  EXPECT_EQ(address_.width(), 60);
}

TEST_F(BrowserToolBar, TellsWhereTheFeedButtonIsOnTheScreen) {
  const QRect place = bar_.FeedButtonPlace();
  EXPECT_EQ(place.size(), QSize(32, 32));
  EXPECT_EQ(QApplication::widgetAt(place.center()), &Button("Add this channel"));
  bar_.FocusFeedButton();
  EXPECT_TRUE(Button("Add this channel").hasFocus());
}

}  // namespace
}  // namespace feedloom
