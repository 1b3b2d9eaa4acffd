#include <QTest>

#include "vxctrl/CVxSlider.h"
#include "vxctrl/StateImageSkin.h"

namespace feedloom {
namespace {

// From 0 to 100, and a pixel wide for each value beside the thumb.
class Slider : public testing::Test {
 protected:
  Slider() {
    for (const char* key : {kImageSliderLeft, kImageSliderMiddle, kImageSliderRight}) {
      skin_.AddImage(key, {6, 10}, Qt::red);
    }
    skin_.AddStates(kImageSliderThumb, {12, 20});
    slider_ = std::make_unique<CVxSlider>(skin_.Get(), nullptr);
    slider_->setRange(0, 100);
    slider_->resize(100 + 12, 30);
  }

  QColor At(int x) const { return slider_->grab().toImage().pixelColor(x, 15); }

  const StateImageSkin skin_;
  std::unique_ptr<CVxSlider> slider_;
};

TEST_F(Slider, TheThumbStandsInTheGrooveWhereTheValueIs) {
  EXPECT_GE(slider_->sizeHint().height(), 20);
  for (const int value : {1, 37, 99}) {
    slider_->setValue(value);
    EXPECT_EQ(At(value), kStateColors[kButtonNormal]) << value;
    EXPECT_EQ(At(value + 11), kStateColors[kButtonNormal]) << value;
    EXPECT_EQ(At(value - 1), QColor(Qt::red));
    EXPECT_EQ(At(value + 12), QColor(Qt::red));
  }
}

TEST_F(Slider, EachStateShowsItsThumb) {
  slider_->setAttribute(Qt::WA_UnderMouse);
  EXPECT_EQ(At(5), kStateColors[kButtonHover]);
  slider_->setSliderDown(true);
  EXPECT_EQ(At(5), kStateColors[kButtonPressed]);
  slider_->setEnabled(false);
  EXPECT_EQ(At(5), kStateColors[kButtonDisabled]);
  EXPECT_GT(At(60).blue(), 0);
}

TEST_F(Slider, APressOnTheGrooveBringsTheThumbThereAndItCanBeDraggedOn) {
  QTest::mousePress(slider_.get(), Qt::LeftButton, {}, QPoint(46, 15));
  EXPECT_EQ(slider_->value(), 40);
  QTest::mouseMove(slider_.get(), QPoint(66, 15));
  EXPECT_EQ(slider_->value(), 60);
  QTest::mouseMove(slider_.get(), QPoint(500, -40));
  EXPECT_EQ(slider_->value(), 100);
  QTest::mouseRelease(slider_.get(), Qt::LeftButton, {}, QPoint(500, -40));
  QTest::mouseMove(slider_.get(), QPoint(20, 15));
  EXPECT_EQ(slider_->value(), 100);
}

TEST_F(Slider, TheThumbDoesNotJumpWhenItIsTaken) {
  slider_->setValue(50);
  QTest::mousePress(slider_.get(), Qt::LeftButton, {}, QPoint(51, 15));
  EXPECT_EQ(slider_->value(), 50);
  QTest::mouseMove(slider_.get(), QPoint(54, 15));
  EXPECT_EQ(slider_->value(), 53);
  QTest::mouseRelease(slider_.get(), Qt::LeftButton, {}, QPoint(54, 15));
}

TEST_F(Slider, KeysMoveItAndTheFocusIsVisible) {
  const QImage without = slider_->grab().toImage();
  slider_->show();
  slider_->activateWindow();
  slider_->setFocus();
  ASSERT_TRUE(QTest::qWaitFor([&] { return slider_->hasFocus(); }));
  EXPECT_NE(slider_->grab().toImage(), without);
  QTest::keyClick(slider_.get(), Qt::Key_Right);
  EXPECT_EQ(slider_->value(), 1);
}

TEST(SliderWithoutSkin, LooksAsTheDesktopsDoAndTakesTheMouse) {
  const StateImageSkin empty;
  CVxSlider slider(empty.Get(), nullptr);
  QSlider desktops(Qt::Horizontal);
  EXPECT_EQ(slider.sizeHint(), desktops.sizeHint());
  QTest::mouseClick(&slider, Qt::LeftButton, {}, QPoint(slider.width() - 5, slider.height() / 2));
  EXPECT_GT(slider.value(), 0);
}

}  // namespace
}  // namespace feedloom
