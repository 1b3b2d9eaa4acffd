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
#include "vxctrl/PrintColor.h"

namespace feedloom {
namespace {

const QColor kRed = Qt::red;
const QColor kStateColors[] = {Qt::white, Qt::yellow, Qt::green, Qt::gray};  // by ButtonState

// Images in one colour, each under the name of its key; those of states in kStateColors.
struct PlainSkin {
  PlainSkin() {
    EXPECT_TRUE(registry.WriteString(kHostKey, kValueImageDir, folder.Path()));
    for (const char* key :
         {kImageSliderLeft, kImageSliderMiddle, kImageSliderRight, kImageEditLeft, kImageEditRight,
          kImageComboLeft, kImageComboRight, kImagePopUpComboLeft, kImagePopUpComboRight}) {
      Save(key, {6, 30}, Qt::red);
    }
    Save(kImageEditMiddle, {6, 30}, Qt::white);
    Save(kImageComboMiddle, {6, 30}, Qt::green);
    Save(kImagePopUpComboMiddle, {6, 30}, Qt::cyan);
    const char* const kEndings[] = {"", "_hover", "_pressed", "_disabled"};
    for (int i = 0; i < 4; ++i) {
      Save(std::string("button") + kEndings[i], {40, 20}, kStateColors[i]);
      Save(std::string(kImageRadio) + kEndings[i], {16, 16}, kStateColors[i]);
      Save(std::string(kImageSliderThumb) + kEndings[i], {12, 20}, kStateColors[i]);
    }
  }

  void Save(const std::string& name, const QSize& size, const QColor& color) const {
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    EXPECT_TRUE(image.save(QString::fromStdString(folder.File(name + ".png"))));
  }

  const TempFolder folder;
  const Registry registry{folder.File("registry.reg")};
  const Skin skin{{{}, [](auto, std::string key) { return key + ".png"; }}, HostConfig(registry)};
};

class Controls : public testing::Test, protected PlainSkin {
 protected:
  Controls() {
    for (QWidget* control : all_) control->resize(112, control->sizeHint().height());
    button_.resize(button_.sizeHint());
  }
  static QColor At(QWidget& control, int x, int y) {
    return control.grab().toImage().pixelColor(x, y);
  }

  CButtonEx button_{folder.File("button.png"), nullptr};
  CVxRadioButton radio_{skin, kSectionPanel, kImageRadio, nullptr};
  CVxSlider slider_{skin, nullptr};
  CVxEdit edit_{skin, nullptr};
  CVxComboBox toolbarBox_{skin, ComboLook::Toolbar, nullptr};
  CVxComboBox dialogBox_{skin, ComboLook::Dialog, nullptr};
  QWidget* const all_[6] = {&button_, &radio_, &slider_, &edit_, &toolbarBox_, &dialogBox_};
};

TEST_F(Controls, ButtonsAndThumbShowTheImageOfTheirState) {
  const std::tuple<QWidget*, QPoint, std::function<void(bool)>> kControls[] = {
      {&button_, {20, 1}, [&](bool isDown) { button_.setDown(isDown); }},
      {&radio_, {3, 11}, [&](bool isDown) { radio_.setDown(isDown); }},
      {&slider_, {11, 15}, [&](bool isDown) { slider_.setSliderDown(isDown); }}};
  for (const auto& [control, place, press] : kControls) {
    std::vector<QColor> seen;
    const auto look = [&, x = place.x(), y = place.y()](QWidget& w) {
      seen.push_back(At(w, x, y));
    };
    look(*control);
    control->setAttribute(Qt::WA_UnderMouse), look(*control);
    press(true), look(*control), press(false);
    control->setEnabled(false), look(*control);
    EXPECT_EQ(seen, std::vector(kStateColors, kStateColors + 4))
        << control->metaObject()->className();
  }
  radio_.setChecked(true);
  EXPECT_GT(At(radio_, 18, 18).red(), 60) << "the pressed image, pale";
  EXPECT_GT(At(slider_, 60, 15).blue(), 0) << "the groove, pale";
}

TEST_F(Controls, TakeTheTabKeyAndShowTheFocusAsARingInTheColorOfLinks) {
  const int kInsets[] = {2, 0, 0, 1, 1, 1};
  for (int i = 0; i < 6; ++i) {
    QWidget& control = *all_[i];
    EXPECT_NE(At(control, kInsets[i], 12), control.palette().color(QPalette::Link));
    EXPECT_TRUE(control.focusPolicy() & Qt::TabFocus);
    control.show();
    control.activateWindow();
    control.setFocus();
    ASSERT_TRUE(QTest::qWaitFor([&] { return control.hasFocus(); }));
    EXPECT_EQ(At(control, kInsets[i], 12), control.palette().color(QPalette::Link)) << i;
  }
}

TEST_F(Controls, FieldsLieOnTheirOwnThreePiecesAndCutALongEntry) {
  toolbarBox_.addItem("W");
  dialogBox_.addItem(QString(500, 'W'));
  EXPECT_EQ(dialogBox_.sizeHint(), toolbarBox_.sizeHint());
  for (const auto& [control, middle] : {std::pair<QWidget*, QColor>(&edit_, Qt::white),
                                        {&toolbarBox_, Qt::green},
                                        {&dialogBox_, Qt::cyan}}) {
    EXPECT_EQ(control->minimumSizeHint().height(), 30);
    for (int y = 0; y < 30; ++y) {
      const QColor row[] = {At(*control, 5, y), At(*control, 6, y), At(*control, 105, y),
                            At(*control, 106, y)};
      EXPECT_TRUE(row[0] == kRed && row[1] == middle && row[2] == middle && row[3] == kRed) << y;
    }
    control->setEnabled(false);
    EXPECT_GT(At(*control, 2, 27).blue(), 0);
  }
}

TEST_F(Controls, AnEditBoxTakesATextOfAnyLengthOnOneLine) {
  edit_.insert(QString(100'000, QChar(0xAC00)));
  EXPECT_EQ(edit_.text().size(), 100'000);
  edit_.clear();
  edit_.insert(QStringLiteral(" \u200B one\r\ntwo\nthree\u2028\u2029 "));
  EXPECT_EQ(edit_.text(), QStringLiteral(" \u200B one  two three   "));
  EXPECT_EQ(edit_.TrimmedText(), "one  two three");
  edit_.setText(" \t");
  EXPECT_EQ(edit_.TrimmedText(), "");
}

TEST_F(Controls, ARadioButtonTakesClicksOnItsImageAndTextOnly) {
  radio_.setText(QStringLiteral("자동으로 받습니다."));
  const int width = 28 + radio_.fontMetrics().size(Qt::TextShowMnemonic, radio_.text()).width();
  EXPECT_EQ(radio_.minimumSizeHint().width(), width);
  radio_.resize(width + 100, 22);
  for (const int x : {width, width - 1}) {
    QTest::mouseClick(&radio_, Qt::LeftButton, {}, QPoint(x, 15));
    EXPECT_EQ(radio_.isChecked(), x < width);
  }
}

TEST_F(Controls, TheThumbFollowsValueMouseAndKeys) {
  slider_.setRange(0, 100);  // a pixel each
  slider_.setValue(37);
  for (const int x : {36, 37, 48, 49}) {
    EXPECT_EQ(At(slider_, x, 15), x == 36 || x == 49 ? kRed : kStateColors[kButtonNormal]) << x;
  }
  const auto drag = [&](int from, int to, Qt::MouseButton button) {
    QTest::mousePress(&slider_, button, {}, QPoint(from, 15));
    const int pressed = slider_.value();
    QTest::mouseMove(&slider_, QPoint(to, 15));
    QTest::mouseRelease(&slider_, button, {}, QPoint(to, 15));
    QTest::mouseMove(&slider_, QPoint(1, 15));
    return std::pair(pressed, slider_.value());
  };
  EXPECT_EQ(drag(46, 66, Qt::RightButton), std::pair(37, 37));
  EXPECT_EQ(drag(37, 40, Qt::LeftButton), std::pair(37, 40)) << "taken where it is";
  EXPECT_EQ(drag(86, 500, Qt::LeftButton), std::pair(80, 100)) << "brought there";
  QTest::keyClick(&slider_, Qt::Key_Left);
  EXPECT_EQ(slider_.value(), 99);
}

// One image alone could not tell which radio button is chosen.
TEST_F(Controls, WithoutTheirImagesTheyLookAndActAsTheDesktopsDo) {
  const Skin bare({}, skin.Config());
  CVxSlider slider(bare, nullptr);
  EXPECT_EQ(slider.sizeHint(), QSlider(Qt::Horizontal).sizeHint());
  const auto expectSame = [](QWidget& ours, QWidget&& desktops) {
    for (QWidget* control : {&ours, &desktops}) control->resize(100, 30);
    EXPECT_EQ(ours.grab().toImage(), desktops.grab().toImage());
  };
  CVxRadioButton radio(skin, kSectionControls, kImageEditLeft, nullptr);
  CVxEdit edit(bare, nullptr);
  CVxComboBox box(bare, ComboLook::Dialog, nullptr);
  expectSame(slider, QSlider(Qt::Horizontal));
  expectSame(radio, QRadioButton());
  expectSame(edit, QLineEdit());
  expectSame(box, QComboBox());
  QTest::mouseClick(&slider, Qt::LeftButton, {}, QPoint(95, 15));
  EXPECT_GT(slider.value(), 0);
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
  EXPECT_EQ(At(button_, 20, 1), kStateColors[kButtonPressed]);
}

TEST_F(Controls, AButtonsImageIsStretchedForALongText) {
  EXPECT_EQ(button_.minimumSizeHint(), QSize(40, 20));
  const QImage without = button_.grab().toImage();
  button_.setText("W");
  EXPECT_NE(button_.grab().toImage(), without);
  button_.setText("A text that needs much more room");
  button_.resize(button_.sizeHint());
  EXPECT_EQ(button_.width(), button_.fontMetrics().size(0, button_.text()).width() + 24);
  EXPECT_EQ(At(button_, button_.width() - 1, button_.height() - 1), kStateColors[kButtonNormal]);
}

TEST_F(Controls, AMissingImageOfAButtonIsNamedOnceAndTheNormalOneStandsIn) {
  const std::string edge = folder.File(kImageEditLeft);  // one without states
  for (const auto& [path, missing, color] :
       {std::tuple(folder.File("button.png"), std::string(), kStateColors[3]),
        {edge + ".png", edge + "_hover.png", kRed},
        {folder.Path() + "/", folder.Path() + "/", QColor()}}) {
    CButtonEx button(path, nullptr);
    QCoreApplication::processEvents();
    const auto warnings = button.findChildren<QMessageBox*>();
    ASSERT_EQ(warnings.size(), missing.empty() ? 0 : 1);
    for (const QMessageBox* warning : warnings) {
      EXPECT_EQ(warning->text().toStdString(), missing + " File not found!");
      EXPECT_EQ(warning->textFormat(), Qt::PlainText);
      EXPECT_TRUE(warning->isVisible());
    }
    button.setEnabled(false);
    button.resize(40, 20);
    EXPECT_TRUE(!color.isValid() || At(button, 1, 1) == color);
    EXPECT_FALSE(button.sizeHint().isEmpty());
  }
  EXPECT_EQ(ButtonImagePaths("C:\\skin.d\\go")[kButtonHover], "C:\\skin.d\\go_hover");
}

}  // namespace
}  // namespace feedloom
