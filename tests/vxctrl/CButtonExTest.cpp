#include <gtest/gtest.h>

#include <QAccessible>
#include <QImage>
#include <QMessageBox>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>
#include <filesystem>
#include <memory>

#include "kit/TempFolder.h"
#include "vxctrl/CButtonEx.h"
#include "vxctrl/PrintColor.h"

namespace feedloom {
namespace {

const QColor kColors[] = {Qt::white, Qt::yellow, Qt::green, Qt::gray};  // by ButtonState

class CButtonExTest : public testing::Test {
 protected:
  // Images of 40 x 20 pixels, each state in its colour.
  CButtonExTest() {
    const auto paths = ButtonImagePaths(folder_.File("go.png"));
    for (std::size_t state = 0; state < paths.size(); ++state) {
      QImage image(40, 20, QImage::Format_RGB32);
      image.fill(kColors[state]);
      EXPECT_TRUE(image.save(QString::fromStdString(paths[state])));
    }
  }

  void Lose(ButtonState state) const {
    std::filesystem::remove(ButtonImagePaths(folder_.File("go.png"))[state]);
  }

  // A new button, shown away from the pointer and without the focus.
  CButtonEx& Show(const QString& text = {}) {
    button_ = std::make_unique<CButtonEx>(folder_.File("go.png"), nullptr);
    button_->setText(text);
    button_->move(300, 300);
    button_->show();
    QTest::qWait(0);
    button_->setAttribute(Qt::WA_UnderMouse, false);
    button_->clearFocus();
    return *button_;
  }

  static QColor Background(QWidget& button) {
    return button.grab().toImage().pixelColor(button.width() / 2, 1);
  }

  QList<QMessageBox*> Warnings() const {
    QTest::qWait(0);
    return button_->findChildren<QMessageBox*>();
  }

  const TempFolder folder_;
  std::unique_ptr<CButtonEx> button_;
};

TEST_F(CButtonExTest, EachStateShowsItsImage) {
  CButtonEx& button = Show();
  EXPECT_EQ(button.size(), QSize(40, 20));
  EXPECT_EQ(Background(button), kColors[kButtonNormal]);
  button.setAttribute(Qt::WA_UnderMouse);
  EXPECT_EQ(Background(button), kColors[kButtonHover]);
  button.setDown(true);
  EXPECT_EQ(Background(button), kColors[kButtonPressed]);
  button.setEnabled(false);
  EXPECT_EQ(Background(button), kColors[kButtonDisabled]);
  EXPECT_TRUE(Warnings().isEmpty());
}

TEST_F(CButtonExTest, FocusIsVisible) {
  CButtonEx& button = Show();
  const QImage without = button.grab().toImage();
  button.activateWindow();
  button.setFocus();
  ASSERT_TRUE(QTest::qWaitFor([&] { return button.hasFocus(); }));
  EXPECT_NE(button.grab().toImage(), without);
}

TEST_F(CButtonExTest, AnImageIsStretchedForALongText) {
  CButtonEx& button = Show(QStringLiteral("A text that needs much more room"));
  EXPECT_GT(button.width(), 40);
  const QImage shown = button.grab().toImage();
  EXPECT_EQ(shown.pixelColor(0, 0), kColors[kButtonNormal]);
  EXPECT_EQ(shown.pixelColor(shown.width() - 1, shown.height() - 1), kColors[kButtonNormal]);
}

TEST_F(CButtonExTest, TextLiesOnTheImage) {
  const QImage without = Show().grab().toImage();
  EXPECT_NE(Show(QStringLiteral("예")).grab().toImage(), without);
}

TEST_F(CButtonExTest, KeysAndClicksPressIt) {
  CButtonEx& button = Show();
  const QSignalSpy clicks(&button, &QAbstractButton::clicked);
  QTest::mouseClick(&button, Qt::LeftButton);
  QTest::keyClick(&button, Qt::Key_Space);
  QTest::keyClick(&button, Qt::Key_Return);
  QTest::keyClick(&button, Qt::Key_Enter);
  EXPECT_EQ(clicks.count(), 4);

  QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
  QApplication::sendEvent(&button, &held);
  EXPECT_EQ(clicks.count(), 4);

  button.setEnabled(false);
  QTest::keyClick(&button, Qt::Key_Return);
  EXPECT_EQ(clicks.count(), 4);
}

TEST_F(CButtonExTest, ACheckedButtonStaysPressedAndLeavesEnterToItsWindow) {
  CButtonEx& button = Show();
  button.setCheckable(true);
  QTest::mouseClick(&button, Qt::LeftButton);
  EXPECT_EQ(Background(button), kColors[kButtonPressed]);
  EXPECT_TRUE(QAccessible::queryAccessibleInterface(&button)->state().checked);
  QTest::keyClick(&button, Qt::Key_Return);
  EXPECT_TRUE(button.isChecked());
  QTest::keyClick(&button, Qt::Key_Space);
  EXPECT_EQ(Background(button), kColors[kButtonNormal]);
}

TEST_F(CButtonExTest, AScreenReaderFindsAButton) {
  CButtonEx& button = Show(QStringLiteral("예"));
  QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(&button);
  EXPECT_EQ(seen->role(), QAccessible::Button);
  EXPECT_EQ(seen->text(QAccessible::Name), QStringLiteral("예"));
}

TEST_F(CButtonExTest, AMissingStateIsNamedAndTheNormalImageStandsIn) {
  Lose(kButtonDisabled);
  CButtonEx& button = Show();
  ASSERT_EQ(Warnings().size(), 1);
  const QPointer<QMessageBox> warning = Warnings().front();
  EXPECT_EQ(warning->windowTitle(), "Warning");
  EXPECT_EQ(warning->text().toStdString(), folder_.File("go_disabled.png") + " File not found!");
  EXPECT_TRUE(warning->isVisible());

  button.setEnabled(false);
  EXPECT_EQ(Background(button), kColors[kButtonNormal]);
  warning->close();
  EXPECT_TRUE(QTest::qWaitFor([&] { return warning.isNull(); }));
}

TEST_F(CButtonExTest, AButtonWithoutAnyImageWarnsOnceAndStillWorks) {
  for (int state = 0; state < kButtonStateCount; ++state) Lose(static_cast<ButtonState>(state));
  CButtonEx& button = Show();
  ASSERT_EQ(Warnings().size(), 1);
  EXPECT_EQ(Warnings().front()->text().toStdString(), folder_.File("go.png") + " File not found!");
  Warnings().front()->close();
  QTest::qWait(0);

  const QSignalSpy clicks(&button, &QAbstractButton::clicked);
  EXPECT_FALSE(button.size().isEmpty());
  QTest::mouseClick(&button, Qt::LeftButton);
  EXPECT_EQ(clicks.count(), 1);
}

TEST_F(CButtonExTest, ADirectoryIsNoImage) {
  button_ = std::make_unique<CButtonEx>(folder_.Path() + "/", nullptr);
  ASSERT_EQ(Warnings().size(), 1);
  EXPECT_EQ(Warnings().front()->text().toStdString(), folder_.Path() + "/ File not found!");
}

TEST_F(CButtonExTest, AButtonThatGoesAtOnceTakesItsWarningWithIt) {
  { const CButtonEx button(folder_.File("other.png"), nullptr); }
  QTest::qWait(0);
  EXPECT_TRUE(QApplication::topLevelWidgets().isEmpty());
}

}  // namespace
}  // namespace feedloom
