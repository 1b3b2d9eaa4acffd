// The window that announces new posts, with its own timers.

#include <gtest/gtest.h>

#include <QAccessible>
#include <QElapsedTimer>
#include <QLabel>
#include <QPointer>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>
#include <algorithm>

#include "kit/ShippedSkin.h"
#include "ui/notice/CRSS_AnnounceDlg.h"
#include "vxctrl/CButtonEx.h"

namespace feedloom {
namespace {

class AnnounceDlgTest : public testing::Test {
 protected:
  AnnounceDlgTest() {
    owner.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&owner));
  }

  CRSS_AnnounceDlg& Announce(int count, int alphaValue = 0) {
    notice = new CRSS_AnnounceDlg(shipped.Get(), &owner);
    notice->Announce(count, alphaValue);
    return *notice;
  }
  void AnnounceAndWaitUntilShown() {
    Announce(3);
    EXPECT_TRUE(QTest::qWaitFor([&] { return notice->height() == kNoticeHeight; }));
  }
  bool IsDeletedNow() {
    return QTest::qWaitFor([&] { return !notice; });
  }

  const ShippedSkin shipped{"KOR"};
  QWidget owner;
  QPointer<CRSS_AnnounceDlg> notice;
};

TEST_F(AnnounceDlgTest, SlidesUpStaysFadesOutAndDeletesItself) {
  QElapsedTimer life;
  life.start();
  Announce(3, 100);
  EXPECT_TRUE(notice->isVisible());
  EXPECT_EQ(notice->height(), 0);
  EXPECT_NEAR(notice->windowOpacity(), 0.6, 0.01);
  EXPECT_TRUE(QTest::qWaitFor([&] { return notice->height() == kNoticeHeight; }));
  EXPECT_TRUE(owner.screen()->geometry().contains(notice->frameGeometry()));
  double faintest = 1;
  const auto isGone = [&] {
    if (notice) faintest = std::min(faintest, notice->windowOpacity());
    return !notice;
  };
  EXPECT_TRUE(QTest::qWaitFor(isGone, 10'000));
  EXPECT_LT(faintest, 0.5);
  EXPECT_GE(life.elapsed(), 400 + 5000 + 800 - 100);
}

TEST_F(AnnounceDlgTest, TellsTheCountInTheHostsLanguageWithNothingClipped) {
  const struct {
    const char* language;
    const char* caption;
    const char* count;
  } cases[] = {{"KOR", "업데이트된 새글의 수", "1234567890 개"},
               {"ENG", "New posts", "1234567890"}};
  for (const auto& [language, caption, count] : cases) {
    const ShippedSkin skin{language};
    CRSS_AnnounceDlg window(skin.Get(), &owner);
    window.setAttribute(Qt::WA_DeleteOnClose, false);
    window.Announce(1234567890, 0);
    QAccessibleInterface* const told = QAccessible::queryAccessibleInterface(&window);
    EXPECT_EQ(told->role(), QAccessible::AlertMessage);
    EXPECT_EQ(told->text(QAccessible::Name), caption);
    EXPECT_EQ(told->text(QAccessible::Description), count);
    QStringList texts;
    for (const auto* label : window.findChildren<QLabel*>()) {
      texts << label->text();
      EXPECT_LE(label->sizeHint().width(), label->width()) << label->text().toStdString();
      EXPECT_LE(label->sizeHint().height(), label->height()) << label->text().toStdString();
    }
    texts.sort();
    EXPECT_EQ(texts, QStringList({count, caption}));
  }
}

TEST_F(AnnounceDlgTest, AClickOnTheWindowIsToldAndClosesItForGood) {
  AnnounceAndWaitUntilShown();
  QSignalSpy clicks(notice, &CRSS_AnnounceDlg::Clicked);
  QTest::mouseClick(notice, Qt::RightButton);
  EXPECT_EQ(clicks.count(), 0);
  EXPECT_TRUE(notice->isVisible());
  QTest::mouseClick(notice->findChild<QLabel*>(), Qt::LeftButton);
  EXPECT_EQ(clicks.count(), 1);
  EXPECT_FALSE(notice->isVisible());
  EXPECT_TRUE(IsDeletedNow());
}

TEST_F(AnnounceDlgTest, TheCloseButtonClosesItAtOnceAndIsNoClick) {
  AnnounceAndWaitUntilShown();
  auto* const button = notice->findChild<CButtonEx*>();
  EXPECT_EQ(button->accessibleName(), "알림 닫기");
  QSignalSpy clicks(notice, &CRSS_AnnounceDlg::Clicked);
  // Pressed there, and let go beside it.
  QTest::mousePress(button, Qt::LeftButton);
  QTest::mouseRelease(button, Qt::LeftButton, {}, QPoint(-30, 20));
  EXPECT_TRUE(notice->isVisible());
  QTest::mouseClick(button, Qt::LeftButton);
  EXPECT_FALSE(notice->isVisible());
  EXPECT_TRUE(IsDeletedNow());
  EXPECT_EQ(clicks.count(), 0);
}

TEST_F(AnnounceDlgTest, MagentaIsNotAPartOfTheWindow) {
  const QRegion mask = Announce(3).mask();
  for (const QPoint corner : {QPoint(0, 0), QPoint(200, 0), QPoint(0, 97), QPoint(200, 97)}) {
    EXPECT_FALSE(mask.contains(corner)) << corner.x() << "," << corner.y();
  }
  EXPECT_TRUE(mask.contains(QPoint(100, 0)));
  EXPECT_TRUE(mask.contains(QPoint(100, 50)));
}

}  // namespace
}  // namespace feedloom
