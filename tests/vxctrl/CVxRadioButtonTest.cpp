#include <QTest>

#include "vxctrl/CVxRadioButton.h"
#include "vxctrl/StateImageSkin.h"

namespace feedloom {
namespace {

class RadioButton : public testing::Test {
 protected:
  CVxRadioButton Make() const { return {skin_.Get(), kSectionPanel, kImageRadio, nullptr}; }

  static QColor Image(CVxRadioButton& radio) {
    return radio.grab().toImage().pixelColor(10, radio.height() / 2);
  }

  const StateImageSkin skin_;
};

TEST_F(RadioButton, EachStateShowsItsImage) {
  skin_.AddStates(kImageRadio, {16, 16});
  CVxRadioButton radio = Make();
  radio.resize(radio.sizeHint());
  EXPECT_EQ(Image(radio), kStateColors[kButtonNormal]);
  radio.setAttribute(Qt::WA_UnderMouse);
  EXPECT_EQ(Image(radio), kStateColors[kButtonHover]);
  radio.setDown(true);
  EXPECT_EQ(Image(radio), kStateColors[kButtonPressed]);
  radio.setDown(false);
  radio.setChecked(true);
  EXPECT_EQ(Image(radio), kStateColors[kButtonPressed]);
  radio.setEnabled(false);
  const QColor pale = Image(radio);
  EXPECT_GT(pale.red(), 60);
  EXPECT_GT(pale.green(), pale.red());

  CVxRadioButton other = Make();
  other.setEnabled(false);
  EXPECT_EQ(Image(other), kStateColors[kButtonDisabled]);
}

TEST_F(RadioButton, ImageAndTextTakeAClickAndTheRestDoesNot) {
  skin_.AddStates(kImageRadio, {16, 30});
  CVxRadioButton radio = Make();
  radio.setText(QStringLiteral("자동으로 받습니다."));
  const QSize hint = radio.sizeHint();
  EXPECT_GE(hint.width(), 16 + radio.fontMetrics().horizontalAdvance(radio.text()));
  EXPECT_GE(hint.height(), 30);

  radio.resize(hint.width() + 100, hint.height());
  QTest::mouseClick(&radio, Qt::LeftButton, {}, QPoint(hint.width() + 50, 15));
  EXPECT_FALSE(radio.isChecked());
  QTest::mouseClick(&radio, Qt::LeftButton, {}, QPoint(hint.width() - 5, 15));
  EXPECT_TRUE(radio.isChecked());
}

TEST_F(RadioButton, FocusIsVisible) {
  skin_.AddStates(kImageRadio, {16, 16});
  CVxRadioButton radio = Make();
  radio.resize(radio.sizeHint());
  const QImage without = radio.grab().toImage();
  radio.show();
  radio.activateWindow();
  radio.setFocus();
  ASSERT_TRUE(QTest::qWaitFor([&] { return radio.hasFocus(); }));
  EXPECT_NE(radio.grab().toImage(), without);
}

// One image alone could not tell which one is chosen.
TEST_F(RadioButton, WithoutThePressedImageItLooksAsTheDesktopsDo) {
  skin_.AddImage(kImageRadio, {50, 50}, Qt::red);
  CVxRadioButton radio = Make();
  QRadioButton desktops;
  EXPECT_EQ(radio.sizeHint(), desktops.sizeHint());
  radio.resize(radio.sizeHint());
  desktops.resize(desktops.sizeHint());
  EXPECT_EQ(radio.grab().toImage(), desktops.grab().toImage());
}

}  // namespace
}  // namespace feedloom
