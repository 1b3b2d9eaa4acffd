// The window that announces new posts, with its own timers.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QElapsedTimer>
#include <QLabel>
#include <QPointer>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>

#include "kit/ShippedSkin.h"
#include "ui/notice/CRSS_AnnounceDlg.h"
#include "vxctrl/CButtonEx.h"

namespace feedloom {
namespace {

struct AnnounceDlgTest : testing::Test {
  void Announce(int alphaValue) {
    owner.show();
    notice = new CRSS_AnnounceDlg(shipped.Get(), &owner);
    clicks = std::make_unique<QSignalSpy>(notice, &CRSS_AnnounceDlg::Clicked);
    notice->Announce(1234567890, alphaValue);
  }
  bool Grows() {
    return QTest::qWaitFor([&] { return notice->height() == kNoticeHeight; });
  }

  QWidget owner;
  const ShippedSkin shipped;
  QPointer<CRSS_AnnounceDlg> notice;
  std::unique_ptr<QSignalSpy> clicks;
};

TEST_F(AnnounceDlgTest, TellsTheCountThenFadesOutAndDeletesItself) {
  QElapsedTimer life;
  life.start();
  Announce(100);
  EXPECT_NEAR(notice->windowOpacity(), 0.6, 0.01);
  const QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(notice);
  EXPECT_EQ(spoken->role(), QAccessible::AlertMessage);
  EXPECT_EQ(spoken->text(QAccessible::Name), "업데이트된 새글의 수");
  EXPECT_EQ(spoken->text(QAccessible::Description), "1234567890 개");
  for (const auto* const label : notice->findChildren<QLabel*>()) {
    EXPECT_TRUE(label->text() == "1234567890 개" || label->text() == "업데이트된 새글의 수");
    EXPECT_TRUE(label->rect().contains(QRect({}, label->sizeHint()))) << "nothing is clipped";
  }
  EXPECT_TRUE(Grows());
  EXPECT_TRUE(owner.screen()->geometry().contains(notice->frameGeometry()));
  EXPECT_FALSE(notice->mask().contains(QPoint(0, 0)) || notice->mask().contains(QPoint(200, 97)));
  EXPECT_TRUE(notice->mask().contains(QPoint(100, 50)));
  EXPECT_TRUE(QTest::qWaitFor([&] { return notice->windowOpacity() < 0.5; }, 10'000));
  EXPECT_TRUE(QTest::qWaitFor([&] { return !notice; }));
  EXPECT_GE(life.elapsed(), 400 + 5000 + 800 - 100);
}

TEST_F(AnnounceDlgTest, AClickClosesItAtOnceAndIsToldUnlessItIsOnTheCloseButton) {
  for (const bool isOnButton : {false, true}) {
    Announce(0);
    EXPECT_TRUE(Grows());
    auto* const button = notice->findChild<CButtonEx*>();
    QTest::mouseClick(notice, Qt::RightButton);
    QTest::mousePress(button, Qt::LeftButton);
    QTest::mouseRelease(button, Qt::LeftButton, {}, QPoint(-30, 20));  // let go beside it
    EXPECT_TRUE(notice->isVisible() && clicks->empty());
    QTest::mouseClick(isOnButton ? static_cast<QWidget*>(button) : notice->findChild<QLabel*>(),
                      Qt::LeftButton);
    EXPECT_FALSE(notice->isVisible());
    EXPECT_EQ(clicks->count(), isOnButton ? 0 : 1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !notice; }));
  }
}

}  // namespace
}  // namespace feedloom
