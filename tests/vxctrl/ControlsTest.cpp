// The skinned button, radio button, slider, edit box and drop-down lists.

#include <gtest/gtest.h>

#include <QAccessible>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTest>
#include <filesystem>

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

const QColor kStateColors[] = {Qt::white, Qt::yellow, Qt::green, Qt::gray};  // by ButtonState

// The controls on a skin of images in one colour, each under the name of its key.
class Controls : public testing::Test {
 protected:
  Controls() {
    EXPECT_TRUE(registry_.WriteString(kHostKey, kValueImageDir, folder_.Path()));
    AddStates("button", {40, 20});
    AddStates(kImageRadio, {16, 16});
    AddStates(kImageSliderThumb, {12, 20});
    for (const char* key :
         {kImageSliderLeft, kImageSliderMiddle, kImageSliderRight, kImageEditLeft, kImageEditRight,
          kImageComboLeft, kImageComboRight, kImagePopUpComboLeft, kImagePopUpComboRight}) {
      AddImage(key, {6, 30}, Qt::red);
    }
    AddImage(kImageEditMiddle, {6, 30}, Qt::white);
    AddImage(kImageComboMiddle, {6, 30}, Qt::green);
    AddImage(kImagePopUpComboMiddle, {6, 30}, Qt::cyan);
  }
  void AddImage(const std::string& name, const QSize& size, const QColor& color) const {
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    EXPECT_TRUE(image.save(QString::fromStdString(folder_.File(name + ".png"))));
  }
  void AddStates(const std::string& name, const QSize& size) const {
    const char* const kEndings[] = {"", "_hover", "_pressed", "_disabled"};
    for (int i = 0; i < 4; ++i) AddImage(name + kEndings[i], size, kStateColors[i]);
  }
  std::string ButtonImage() const { return folder_.File("button.png"); }
  void Lose(const char* file) const { std::filesystem::remove(folder_.File(file)); }

  static QColor At(QWidget& control, int x, int y) {
    return control.grab().toImage().pixelColor(x, y);
  }
  static QList<QMessageBox*> WarningsOf(QWidget& button) {
    QCoreApplication::processEvents();
    return button.findChildren<QMessageBox*>();
  }

  const TempFolder folder_;
  const Registry registry_{folder_.File("registry.reg")};
  const Skin skin_{{{}, [](const char*, std::string key) { return key + ".png"; }},
                   HostConfig(registry_)};
};

class AllControls : public Controls {
 protected:
  AllControls() {
    for (QWidget* const control : all_) control->resize(112, control->sizeHint().height());
    button_.resize(button_.sizeHint());
  }

  CButtonEx button_{ButtonImage(), nullptr};
  CVxRadioButton radio_{skin_, kSectionPanel, kImageRadio, nullptr};
  CVxSlider slider_{skin_, nullptr};
  CVxEdit edit_{skin_, nullptr};
  CVxComboBox toolbarBox_{skin_, ComboLook::Toolbar, nullptr};
  CVxComboBox dialogBox_{skin_, ComboLook::Dialog, nullptr};
  QWidget* const all_[6] = {&button_, &radio_, &slider_, &edit_, &toolbarBox_, &dialogBox_};
};

TEST_F(AllControls, ButtonsAndThumbShowTheImageOfTheirState) {
  const std::tuple<QWidget*, QPoint, std::function<void(bool)>> kControls[] = {
      {&button_, {20, 1}, [&](bool isDown) { button_.setDown(isDown); }},
      {&radio_, {3, 11}, [&](bool isDown) { radio_.setDown(isDown); }},
      {&slider_, {11, 15}, [&](bool isDown) { slider_.setSliderDown(isDown); }}};
  for (const auto& [control, place, press] : kControls) {
    SCOPED_TRACE(control->metaObject()->className());
    EXPECT_EQ(At(*control, place.x(), place.y()), kStateColors[kButtonNormal]);
    control->setAttribute(Qt::WA_UnderMouse);
    EXPECT_EQ(At(*control, place.x(), place.y()), kStateColors[kButtonHover]);
    press(true);
    EXPECT_EQ(At(*control, place.x(), place.y()), kStateColors[kButtonPressed]);
    press(false);
    control->setEnabled(false);
    EXPECT_EQ(At(*control, place.x(), place.y()), kStateColors[kButtonDisabled]);
  }
  radio_.setChecked(true);
  EXPECT_GT(At(radio_, 18, 18).red(), 60) << "the pressed image, pale";
  EXPECT_EQ(At(radio_, 19, 18), At(radio_, 19, 1)) << "beside it";
  EXPECT_GT(At(slider_, 60, 15).blue(), 0) << "the groove, pale";
}

TEST_F(AllControls, TakeTheTabKeyAndShowTheFocusAsARingInTheColorOfLinks) {
  const int kInsets[] = {2, 0, 0, 1, 1, 1};
  for (int i = 0; i < 6; ++i) {
    QWidget& control = *all_[i];
    SCOPED_TRACE(control.metaObject()->className());
    EXPECT_EQ(control.focusPolicy() & Qt::TabFocus, Qt::TabFocus);
    EXPECT_NE(At(control, kInsets[i], 12), control.palette().color(QPalette::Link));
    control.show();
    control.activateWindow();
    control.setFocus();
    ASSERT_TRUE(QTest::qWaitFor([&] { return control.hasFocus(); }));
    EXPECT_EQ(At(control, kInsets[i], 12), control.palette().color(QPalette::Link));
  }
}

TEST_F(AllControls, FieldsLieOnTheirOwnThreePieces) {
  for (const auto& [control, middle] : {std::pair<QWidget*, QColor>(&edit_, Qt::white),
                                        {&toolbarBox_, Qt::green},
                                        {&dialogBox_, Qt::cyan}}) {
    EXPECT_EQ(control->minimumSizeHint().height(), 30);
    const QColor row[] = {At(*control, 5, 27), At(*control, 6, 27), At(*control, 105, 27),
                          At(*control, 106, 27)};
    EXPECT_EQ(std::vector(row, row + 4),
              std::vector({QColor(Qt::red), middle, middle, QColor(Qt::red)}));
    control->setEnabled(false);
    EXPECT_GT(At(*control, 2, 27).blue(), 0);
  }
}

TEST_F(AllControls, AnEditBoxTakesATextOfAnyLengthOnOneLine) {
  edit_.insert(QString(100'000, QChar(0xAC00)));
  EXPECT_EQ(edit_.text().size(), 100'000);
  edit_.clear();
  edit_.insert(QStringLiteral(" \u200B one\r\ntwo\nthree\u2028\u2029 "));
  EXPECT_EQ(edit_.text(), QStringLiteral(" \u200B one  two three   "));
  EXPECT_EQ(edit_.TrimmedText(), "one  two three");
  edit_.setText(" \t");
  EXPECT_EQ(edit_.TrimmedText(), "");
}

TEST_F(AllControls, ALongEntryIsCutAndWidensNothing) {
  toolbarBox_.addItem("W");
  dialogBox_.addItem(QString(500, 'W'));
  EXPECT_EQ(dialogBox_.sizeHint(), toolbarBox_.sizeHint());
  const QImage picture = dialogBox_.grab().toImage();
  for (const int x : {5, 6, 7, 104, 105, 106}) {
    for (int y = 0; y < 30; ++y) {
      EXPECT_EQ(picture.pixelColor(x, y), x == 5 || x == 106 ? QColor(Qt::red) : QColor(Qt::cyan));
    }
  }
}

TEST_F(AllControls, ARadioButtonTakesClicksOnItsImageAndText) {
  radio_.setText(QStringLiteral("자동으로 받습니다."));
  const int width =
      3 + 16 + 6 + radio_.fontMetrics().size(Qt::TextShowMnemonic, radio_.text()).width() + 3;
  EXPECT_EQ(radio_.minimumSizeHint().width(), width);
  radio_.resize(width + 100, 22);
  QTest::mouseClick(&radio_, Qt::LeftButton, {}, QPoint(width, 15));
  EXPECT_FALSE(radio_.isChecked());
  QTest::mouseClick(&radio_, Qt::LeftButton, {}, QPoint(width - 1, 15));
  EXPECT_TRUE(radio_.isChecked());
}

TEST_F(AllControls, TheThumbFollowsValueMouseAndKeys) {
  slider_.setRange(0, 100);  // a pixel each
  EXPECT_GE(slider_.minimumSizeHint().height(), 30);
  slider_.setValue(37);
  for (const auto& [x, isThumb] : {std::pair(36, false), {37, true}, {48, true}, {49, false}}) {
    EXPECT_EQ(At(slider_, x, 15), isThumb ? kStateColors[kButtonNormal] : QColor(Qt::red)) << x;
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
  Lose("RSS_RADIO_pressed.png"), Lose((std::string(kImageRadio) + "_pressed.png").c_str());
  Lose((std::string(kImageSliderThumb) + ".png").c_str());
  CVxRadioButton radio(skin_, kSectionPanel, kImageRadio, nullptr);
  CVxSlider slider(skin_, nullptr);
  QRadioButton desktopsRadio;
  QSlider desktopsSlider(Qt::Horizontal);
  for (const auto& [ours, desktops] :
       {std::pair<QWidget*, QWidget*>(&radio, &desktopsRadio), {&slider, &desktopsSlider}}) {
    EXPECT_EQ(ours->sizeHint(), desktops->sizeHint());
    for (QWidget* const control : {ours, desktops}) control->resize(100, 30);
    EXPECT_EQ(ours->grab().toImage(), desktops->grab().toImage());
  }
  QTest::mouseClick(&slider, Qt::LeftButton, {}, QPoint(95, 15));
  EXPECT_GT(slider.value(), 0);
  QTest::mouseClick(&radio, Qt::LeftButton, {}, QPoint(5, 15));
  EXPECT_TRUE(radio.isChecked());
}

TEST_F(AllControls, AButtonIsPressedOnceByClickSpaceAndEnter) {
  const QSignalSpy clicks(&button_, &QAbstractButton::clicked);
  QTest::mouseClick(&button_, Qt::LeftButton);
  for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter})
    QTest::keyClick(&button_, key);
  QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
  QApplication::sendEvent(&button_, &held);
  EXPECT_EQ(clicks.count(), 4);
  button_.setCheckable(true);
  QTest::keyClick(&button_, Qt::Key_Return);
  EXPECT_FALSE(button_.isChecked()) << "Enter is its window's";
  QTest::keyClick(&button_, Qt::Key_Space);
  EXPECT_EQ(At(button_, 20, 1), kStateColors[kButtonPressed]);
}

TEST_F(AllControls, AButtonsImageIsStretchedForALongText) {
  EXPECT_EQ(button_.minimumSizeHint(), QSize(40, 20));
  const QImage without = button_.grab().toImage();
  button_.setText("W");
  EXPECT_NE(button_.grab().toImage(), without);
  button_.setText("A text that needs much more room");
  EXPECT_EQ(button_.sizeHint().width(), button_.fontMetrics().size(0, button_.text()).width() + 24);
  button_.resize(button_.sizeHint());
  EXPECT_EQ(At(button_, button_.width() - 1, button_.height() - 1), kStateColors[kButtonNormal]);
  const auto* const seen = QAccessible::queryAccessibleInterface(&button_);
  EXPECT_EQ(seen->text(QAccessible::Name), button_.text());
  EXPECT_EQ(seen->role(), QAccessible::Button);
  EXPECT_TRUE(WarningsOf(button_).isEmpty());
}

TEST_F(Controls, AMissingImageOfAButtonIsNamedOnceAndTheNormalOneStandsIn) {
  for (const char* missing : {"button_disabled.png", "button.png"}) {
    Lose(missing);
    CButtonEx button(ButtonImage(), nullptr);
    ASSERT_EQ(WarningsOf(button).size(), 1);
    QMessageBox& warning = *WarningsOf(button).front();
    EXPECT_EQ(warning.windowTitle(), "Warning");
    EXPECT_EQ(warning.text().toStdString(), folder_.File(missing) + " File not found!");
    EXPECT_EQ(warning.textFormat(), Qt::PlainText);
    warning.close();
    EXPECT_TRUE(QTest::qWaitFor([&] { return WarningsOf(button).isEmpty(); }));
    button.setEnabled(false);
    button.resize(40, 20);
    EXPECT_EQ(At(button, 20, 1) == kStateColors[kButtonNormal],
              missing != std::string("button.png"));
    EXPECT_FALSE(button.sizeHint().isEmpty());
  }
  EXPECT_EQ(WarningsOf(*std::make_unique<CButtonEx>(folder_.Path() + "/", nullptr)).size(), 1);
  EXPECT_EQ(ButtonImagePaths("C:\\skin.d\\go")[kButtonHover], "C:\\skin.d\\go_hover");
  EXPECT_EQ(ButtonImagePaths("/skin.d/go")[kButtonHover], "/skin.d/go_hover");
}

}  // namespace
}  // namespace feedloom
