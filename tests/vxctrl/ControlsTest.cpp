// The skinned button, radio button, slider, edit box and drop-down lists.

#include <gtest/gtest.h>

#include <QMessageBox>
#include <QSignalSpy>
#include <QTest>

#include "kit/TempFolder.h"
#include "skin/Keys.h"
#include "skin/Skin.h"
#include "vxctrl/CButtonEx.h"
#include "vxctrl/CVxComboBox.h"
#include "vxctrl/CVxEdit.h"
#include "vxctrl/CVxRadioButton.h"
#include "vxctrl/CVxSlider.h"

namespace feedloom {
namespace {

const std::string kRed = "#ff0000";
const std::string kStateColors[] = {"#ffffff", "#ffff00", "#00ff00", "#808080"};  // by ButtonState

class Controls : public testing::Test {
 protected:
  Controls() {
    for (QWidget* control : all_) control->resize(112, control->sizeHint().height());
    button_.resize(button_.sizeHint());
  }
  // Images in one colour each: buttons and the thumb in kStateColors, all others in red.
  Skin DrawSkin() const {
    EXPECT_TRUE(registry_.WriteString(kHostKey, kValueImageDir, folder_.Path()));
    const auto draw = [&](const std::string& name, const QSize& size, const std::string& color) {
      QImage image(size, QImage::Format_RGB32);
      image.fill(QColor(QString::fromStdString(color)));
      EXPECT_TRUE(image.save(QString::fromStdString(folder_.File(name))));
    };
    draw("red.png", {6, 30}, kRed);
    for (std::size_t i = 0; i < 4; ++i)
      draw(ButtonImagePaths("state.png")[i], {12, 20}, kStateColors[i]);
    const std::set<std::string> states = {kImageRadio, kImageSliderThumb};
    const auto value = [=](auto, auto key) {
      return states.contains(key) ? "state.png" : "red.png";
    };
    return {{{}, value}, HostConfig(registry_)};
  }
  static std::string At(QWidget& control, int x, int y) {
    return control.grab().toImage().pixelColor(x, y).name().toStdString();
  }

  const TempFolder folder_;
  const Registry registry_{folder_.File("registry.reg")};
  const Skin skin_ = DrawSkin();
  CButtonEx button_{folder_.File("state.png"), nullptr};
  CVxRadioButton radio_{skin_, kSectionPanel, kImageRadio, nullptr};
  CVxSlider slider_{skin_, nullptr};
  CVxEdit edit_{skin_, nullptr};
  CVxComboBox box_{skin_, ComboLook::Toolbar, nullptr};
  QWidget* const all_[5] = {&button_, &radio_, &slider_, &edit_, &box_};
};

TEST_F(Controls, ButtonsAndThumbShowTheImageOfTheirState) {
  const std::tuple<QWidget*, int, std::function<void(bool)>> kControls[] = {
      {&button_, 1, [&](bool isDown) { button_.setDown(isDown); }},
      {&radio_, 11, [&](bool isDown) { radio_.setDown(isDown); }},
      {&slider_, 15, [&](bool isDown) { slider_.setSliderDown(isDown); }}};
  for (const auto& [control, y, press] : kControls) {
    for (int state = kButtonNormal; state <= kButtonDisabled; ++state) {
      control->setAttribute(Qt::WA_UnderMouse, state != kButtonNormal);
      press(state == kButtonPressed);
      control->setEnabled(state != kButtonDisabled);
      EXPECT_EQ(At(*control, 9, y), kStateColors[state]) << control->metaObject()->className();
    }
  }
}

TEST_F(Controls, TakeTheTabKeyAndShowTheFocusAsARingInTheColorOfLinks) {
  const int kInsets[] = {2, 0, 0, 1, 1};
  for (int i = 0; i < 5; ++i) {
    QWidget& control = *all_[i];
    EXPECT_TRUE(control.focusPolicy() & Qt::TabFocus);
    const std::string ring = control.palette().color(QPalette::Link).name().toStdString();
    control.show(), control.activateWindow(), control.setFocus();
    ASSERT_TRUE(QTest::qWaitFor([&] { return control.hasFocus(); }));
    EXPECT_EQ(At(control, kInsets[i], 10), ring) << i;
  }
}

TEST_F(Controls, FieldsTakeATextOfAnyLengthOnOneLine) {
  box_.addItem(QString(500, 'W'));
  EXPECT_EQ(box_.sizeHint(), CVxComboBox(skin_, ComboLook::Toolbar, nullptr).sizeHint());
  edit_.insert(QString(100'000, QChar(0xAC00)));
  EXPECT_EQ(edit_.text().size(), 100'000);
  edit_.clear();
  edit_.insert(QStringLiteral(" \u200B one\r\ntwo\nthree\u2028\u2029 "));
  EXPECT_EQ(edit_.TrimmedText(), "one  two three");
}

TEST_F(Controls, TheThumbIsDraggedFromWhereItIsOrBroughtToThePointer) {
  slider_.setRange(0, 100);  // a pixel each
  slider_.setValue(37);
  const auto drag = [&](int from, int to, Qt::MouseButton button) {
    QTest::mousePress(&slider_, button, {}, QPoint(from, 15));
    const int pressed = slider_.value();
    QTest::mouseMove(&slider_, QPoint(to, 15));
    QTest::mouseRelease(&slider_, button, {}, QPoint(to, 15));
    QTest::mouseMove(&slider_, QPoint(1, 15));
    return std::pair(pressed, slider_.value());
  };
  EXPECT_EQ(drag(46, 66, Qt::RightButton), std::pair(37, 37));
  EXPECT_EQ(drag(37, 40, Qt::LeftButton), std::pair(37, 40));
  EXPECT_EQ(drag(86, 500, Qt::LeftButton), std::pair(80, 100));
}

TEST_F(Controls, AButtonIsPressedByClickSpaceAndEnterOnceEach) {
  const QSignalSpy clicks(&button_, &QAbstractButton::clicked);
  QTest::mouseClick(&button_, Qt::LeftButton);
  QTest::keyClicks(&button_, " \r");
  QTest::keyClick(&button_, Qt::Key_Enter);
  QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
  QApplication::sendEvent(&button_, &held);
  EXPECT_EQ(clicks.count(), 4);
  button_.setCheckable(true);
  QTest::keyClick(&button_, Qt::Key_Return);
  EXPECT_FALSE(button_.isChecked()) << "Enter is its window's";
  QTest::keyClick(&button_, Qt::Key_Space);
  EXPECT_EQ(At(button_, 9, 1), kStateColors[kButtonPressed]);
}

TEST_F(Controls, AMissingImageOfAButtonIsNamedOnceAndTheNormalOneStandsIn) {
  CButtonEx button(folder_.File("red.png"), nullptr);
  QCoreApplication::processEvents();
  const auto warnings = button.findChildren<QMessageBox*>();
  ASSERT_EQ(warnings.size(), 1);
  EXPECT_EQ(warnings[0]->text().toStdString(), folder_.File("red_hover.png") + " File not found!");
  button.setEnabled(false);
  EXPECT_EQ(At(button, 1, 1), kRed);
}

}  // namespace
}  // namespace feedloom
