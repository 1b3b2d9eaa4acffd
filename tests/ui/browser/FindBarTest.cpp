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
#include "ui/browser/FindBar.h"

namespace feedloom {
namespace {

// The bar in a window on screen, open.
class FindBarTest : public testing::Test {
 protected:
  FindBarTest() {
    window_.resize(640, 40);
    window_.show();
    window_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
    EXPECT_FALSE(bar_.isVisible());
    Resize(640);
    bar_.Open();
  }

  void Resize(int width) { bar_.resize(width, bar_.sizeHint().height()); }

  void Press(int key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
  }

  QAbstractButton& Button(const QString& name) const {
    const auto buttons = bar_.findChildren<QAbstractButton*>();
    const auto found = std::ranges::find(buttons, name, &QWidget::accessibleName);
    EXPECT_NE(found, buttons.end()) << name.toStdString();
    return **found;
  }

  void Click(const QString& name) { QTest::mouseClick(&Button(name), Qt::LeftButton); }

  // What has been wanted since the last call, "<word" backward and ">word" forward.
  QStringList Wants() {
    QStringList all;
    while (!wants_.isEmpty()) {
      const auto want = wants_.takeFirst();
      all += (want[1].toBool() ? "<" : ">") + want[0].toString();
    }
    return all;
  }

  const ShippedSkin skin_{"ENG"};
  QWidget window_;
  FindBar bar_{skin_.Get(), &window_};
  QLineEdit& word_ = *bar_.findChild<QLineEdit*>();
  QLabel& result_ = *bar_.findChild<QLabel*>();
  QSignalSpy wants_{&bar_, &FindBar::Wanted};
  QSignalSpy closings_{&bar_, &FindBar::Closed};
};

TEST_F(FindBarTest, OpensWithTheKeyboardAtTheWordWhichIsSelected) {
  EXPECT_TRUE(bar_.isVisible());
  EXPECT_EQ(word_.placeholderText(), "Find in this page");
  EXPECT_EQ(word_.accessibleName(), "Find in this page");
  EXPECT_TRUE(word_.hasFocus());
  QTest::keyClicks(&word_, "cat");
  bar_.Open();
  EXPECT_EQ(word_.selectedText(), "cat");
}

TEST_F(FindBarTest, FindsAsTheUserTypes) {
  QTest::keyClicks(&word_, "at");
  Press(Qt::Key_Backspace);
  Press(Qt::Key_Backspace);
  EXPECT_EQ(Wants(), QStringList({">a", ">at", ">a", ">"}));
}

TEST_F(FindBarTest, KeysAndButtonsLeadToTheNextPlaceAndTheOneBefore) {
  word_.setText("cat");
  Press(Qt::Key_Return);
  Press(Qt::Key_Return, Qt::ShiftModifier);
  Click("Find next");
  Click("Find previous");
  EXPECT_EQ(Wants(), QStringList({">cat", "<cat", ">cat", "<cat"}));
  EXPECT_TRUE(word_.hasFocus());

  QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
  QApplication::sendEvent(&word_, &held);
  EXPECT_EQ(Wants(), QStringList());
}

TEST_F(FindBarTest, TabReachesTheButtonsAndEnterPressesThem) {
  word_.setText("cat");
  Press(Qt::Key_Tab);
  Press(Qt::Key_Return);
  EXPECT_EQ(Wants(), QStringList({"<cat"}));
  Press(Qt::Key_Tab);
  Press(Qt::Key_Return);
  EXPECT_EQ(Wants(), QStringList({">cat"}));
  Press(Qt::Key_Tab);
  Press(Qt::Key_Return);
  EXPECT_EQ(closings_.count(), 1);
}

TEST_F(FindBarTest, ClosingEndsTheSearchOnce) {
  word_.setText("cat");
  Press(Qt::Key_Escape);
  EXPECT_FALSE(bar_.isVisible());
  EXPECT_EQ(Wants(), QStringList({">"}));
  EXPECT_EQ(closings_.count(), 1);
  bar_.Close();
  EXPECT_EQ(closings_.count(), 1);

  bar_.Open();
  Click("Close the search");
  EXPECT_FALSE(bar_.isVisible());
  EXPECT_EQ(Wants(), QStringList({">"}));
  EXPECT_EQ(closings_.count(), 2);
}

TEST_F(FindBarTest, TellsWhichPlaceIsShownOrThatThereIsNone) {
  QTest::keyClicks(&word_, "a");
  bar_.SetResult(2, 17);
  EXPECT_EQ(result_.text(), "2 of 17");
  EXPECT_EQ(word_.accessibleDescription(), "2 of 17");
  bar_.SetResult(0, 0);
  EXPECT_EQ(result_.text(), "Nothing found");
  Press(Qt::Key_Backspace);
  EXPECT_EQ(result_.text(), "");
  bar_.SetResult(0, 0);
  EXPECT_EQ(result_.text(), "");
}

TEST_F(FindBarTest, AResultThatComesAfterTheEndIsNotShownTheNextTime) {
  QTest::keyClicks(&word_, "a");
  bar_.Close();
  bar_.SetResult(1, 3);
  bar_.Open();
  EXPECT_EQ(word_.selectedText(), "a");
  EXPECT_EQ(result_.text(), "");
}

TEST_F(FindBarTest, ANarrowPaneCutsTheResultNotTheButtons) {
  word_.setText("cat");
  bar_.SetResult(0, 0);
  Resize(200);
  EXPECT_TRUE(QTest::qWaitFor([&] { return word_.width() == 60; }));
  EXPECT_LT(word_.geometry().right(), Button("Find previous").x());
  EXPECT_LT(Button("Find next").geometry().right(), result_.x());
  EXPECT_LT(result_.geometry().right(), Button("Close the search").x());
  EXPECT_LT(Button("Close the search").geometry().right(), 200);
}

}  // namespace
}  // namespace feedloom
