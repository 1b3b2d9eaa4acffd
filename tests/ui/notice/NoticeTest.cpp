// The window that announces new posts: its animation, and the window with its own timers.

#include <QtTest>
#include <QtWidgets>

#include "controls/CButtonEx.h"
#include "controls/CutShape.h"
#include "kit/ShippedSkin.h"
#include "ui/notice/CRSS_AnnounceDlg.h"

namespace feedloom {

using namespace std::chrono_literals;
using Timers = std::map<int, std::chrono::milliseconds>;

struct FakeTimers : NoticeTimers {
  void Start(int id, std::chrono::milliseconds period) override { running[id] = period; }
  void Stop(int id) override { running.erase(id); }
  Timers running;
};

TEST(NoticeAnimationTest, SlidesUpInTheScreensCornerStaysFiveSecondsAndFadesOut) {
  const struct {
    int alphaValue, ticksToHide, ticksToClose;
  } cases[] = {{0, 25, 26}, {5, 25, 25}, {100, 15, 16}, {245, 1, 1}, {250, 1, 1}};
  for (const auto& [alphaValue, ticksToHide, ticksToClose] : cases) {
    SCOPED_TRACE(alphaValue);
    FakeTimers timers;
    NoticeAnimation motion(timers);
    motion.Begin(QRect(-1280, 200, 1280, 1024), alphaValue);
    for (int tick = 0; tick < 20; ++tick, motion.OnTimer(0x500)) {
      EXPECT_EQ(motion.Geometry(), QRect(-201, 1171 - 5 * tick, 201, 5 * tick));
      EXPECT_TRUE(motion.IsVisible() && !motion.IsShown());
      EXPECT_EQ(timers.running, (Timers{{0x500, 20ms}}));
    }
    EXPECT_EQ(motion.Geometry(), QRect(-201, 1073, 201, 98));
    EXPECT_TRUE(motion.IsShown());
    EXPECT_EQ(timers.running, (Timers{{3, 5000ms}}));
    motion.OnTimer(3);
    for (int tick = 0; tick <= ticksToClose; ++tick, motion.OnTimer(2)) {
      EXPECT_EQ(motion.FadeLevel(), alphaValue + 10 * tick);
      EXPECT_EQ(motion.IsVisible(), tick < ticksToHide);
      EXPECT_EQ(motion.IsClosed(), tick == ticksToClose);
      EXPECT_EQ(timers.running, motion.IsClosed() ? Timers() : (Timers{{2, 50ms}}));
    }
  }
}

TEST(NoticeAnimationTest, BeginsAsTransparentAsTheSettingSaysWithACountOfZeroOrMore) {
  const int alphas[][2] = {{0, 0},     {1, 2},  {40, 100},  {99, 247},
                           {100, 250}, {-1, 0}, {101, 250}, {2'000'000'000, 250}};
  for (const auto& [setting, value] : alphas) EXPECT_EQ(NoticeAlphaValue(setting), value);
  const int counts[][3] = {{7, 4, 3}, {4, 4, 0}, {4, 7, 0}, {-1, 7, 0}, {1, -1, 2}};
  for (const auto& [total, last, count] : counts) EXPECT_EQ(NewPostCount(total, last), count);
}

// Its border is whole at each scale, and nothing shows the colour that is no part of it.
TEST(CutShape, LosesCornersOnly) {
  const QColor key(255, 0, 255);
  for (const int pixels : {1, 2}) {
    QImage image(201 * pixels, 98 * pixels, QImage::Format_RGB32);
    image.fill(key);
    QPainter painter(&image);
    painter.setBrush(Qt::blue);
    painter.setPen(Qt::blue);
    painter.drawRoundedRect(image.rect().adjusted(0, 0, -1, -1), 7 * pixels, 7 * pixels);
    painter.end();
    image.setDevicePixelRatio(pixels);
    for (const qreal scale : {1., 1.25, 1.5, 1.75, 2.}) {
      const QRect all(0, 0, static_cast<int>(201 * scale), static_cast<int>(98 * scale));
      QRegion shape;  // as the toolkit hands it to the screen
      for (const QRect& part : ShapeWithout(image, key, scale))
        shape += QRect(part.topLeft() * scale, part.size() * scale);
      EXPECT_TRUE((QRegion(all.adjusted(14, 0, -14, 0)) - shape).isEmpty()) << scale;
      EXPECT_TRUE((QRegion(all.adjusted(0, 14, 0, -14)) - shape).isEmpty()) << scale;
      EXPECT_EQ(shape.contains(QPoint(0, 0)), scale == 1.25 || scale == 1.75) << scale;
    }
    QImage blue = image;
    blue.fill(Qt::blue);
    EXPECT_EQ(FilledWithout(image, key), blue);
  }
}

struct AnnounceDlgTest : testing::Test {
  void Announce(int alphaValue) {
    owner.show();
    notice = new CRSS_AnnounceDlg(shipped.Get(), &owner);
    notice->Announce(1234567890, alphaValue);
  }
  bool Grows() {
    return QTest::qWaitFor([&] { return notice->height() == kNoticeHeight; });
  }
  QWidget owner;
  const ShippedSkin shipped;
  QPointer<CRSS_AnnounceDlg> notice;
};

TEST_F(AnnounceDlgTest, TellsTheCountThenFadesOutAndDeletesItself) {
  Announce(kInvisible);
  EXPECT_NEAR(notice->windowOpacity(), 0.2, 0.01) << "it takes clicks";
  Announce(100);
  EXPECT_NEAR(notice->windowOpacity(), 0.6, 0.01);
  EXPECT_EQ(notice->accessibleName(), "업데이트된 새글의 수");
  EXPECT_EQ(notice->accessibleDescription(), "1234567890 개");
  for (const auto* const label : notice->findChildren<QLabel*>()) {
    EXPECT_TRUE(label->text() == "1234567890 개" || label->text() == "업데이트된 새글의 수");
    EXPECT_TRUE(label->rect().contains(QRect({}, label->sizeHint()))) << "nothing is clipped";
  }
  EXPECT_TRUE(Grows() && owner.screen()->geometry().contains(notice->frameGeometry()));
  EXPECT_TRUE(QTest::qWaitFor([&] { return notice->windowOpacity() < 0.5; }, 10'000));
  EXPECT_TRUE(QTest::qWaitFor([&] { return !notice; }));
}

TEST_F(AnnounceDlgTest, AClickClosesItAtOnceAndIsToldUnlessItIsOnTheCloseButton) {
  for (const bool isOnButton : {false, true}) {
    Announce(0);
    const QSignalSpy clicks(notice, &CRSS_AnnounceDlg::Clicked);
    EXPECT_TRUE(Grows());
    QWidget* const button = notice->findChild<CButtonEx*>();
    QTest::mouseClick(notice, Qt::RightButton);
    QTest::mousePress(button, Qt::LeftButton);
    QTest::mouseRelease(button, Qt::LeftButton, {}, QPoint(-30, 20));  // let go beside it
    EXPECT_TRUE(notice->isVisible() && clicks.empty());
    QTest::mouseClick(isOnButton ? button : notice->findChild<QLabel*>(), Qt::LeftButton);
    EXPECT_TRUE(!notice->isVisible() && clicks.count() == (isOnButton ? 0 : 1));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !notice; }));
  }
}

}  // namespace feedloom
