// Dialogs and windows that reach from the frame to the feed's server, the registry and the screen.
#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTest>
#include <QTimer>
#include <QTreeView>

#include "kit/FeedDocuments.h"
#include "shell/ModuleFixture.h"
#include "skin/Keys.h"
#include "ui/Commands.h"
#include "vxctrl/DialogAnswers.h"

namespace feedloom {
namespace {

class FrameDialogs : public ModuleFixture {
 protected:
  template <typename Control>
  static Control& Find(QWidget& window, const QString& name) {
    for (auto* const control : window.findChildren<Control*>()) {
      if (control->accessibleName() == name || control->text() == name) return *control;
    }
    ADD_FAILURE() << "no " << name.toStdString();
    std::abort();
  }
  QWidget& LeftPane() {
    for (QWidget* const pane : frame_->findChildren<QWidget*>()) {
      if (pane->inherits("feedloom::CRSS_LeftContainer")) return *pane;
    }
    ADD_FAILURE() << "no left pane";
    std::abort();
  }
  void PressToolButton(const QString& name) {
    QTest::mouseClick(&Find<QAbstractButton>(LeftPane(), name), Qt::LeftButton);
  }
  static QLineEdit& Box(QDialog& dialog, int index) {
    return *dialog.findChildren<QLineEdit*>()[index];
  }

  // Timer 1 fires once, timer 2 again and again.
  QTimer& UpdateTimer() { return TimerOf(true); }
  QTimer& NoticeTimer() { return TimerOf(false); }
  QTimer& TimerOf(bool firesOnce) {
    for (auto* const timer : LeftPane().findChildren<QTimer*>(Qt::FindDirectChildrenOnly)) {
      if (timer->isSingleShot() == firesOnce) return *timer;
    }
    ADD_FAILURE() << "no timer";
    std::abort();
  }

  // The window that announces new posts; null when there is none.
  static QWidget* Announcement() {
    for (QWidget* const window : QApplication::topLevelWidgets()) {
      if (window->inherits("feedloom::CRSS_AnnounceDlg") && window->isVisible()) return window;
    }
    return nullptr;
  }
  // What it says.
  static QStringList AnnouncedTexts() {
    QStringList texts;
    for (auto* const label : Announcement()->findChildren<QLabel*>()) texts << label->text();
    texts.sort();
    return texts;
  }
  void FireNoticeTimer() { QMetaObject::invokeMethod(&NoticeTimer(), "timeout"); }

  std::string Setting(const std::string& name) {
    const Registry registry = profile_.TheRegistry();
    const auto number = registry.ReadDword(kModuleKey, name);
    return (number ? std::to_string(*number) : "none") + " " +
           registry.ReadString(kModuleKey, name + "Str").value_or("none");
  }

  DialogAnswers answers_;
};

TEST_F(FrameDialogs, AChannelIsCheckedAddedAndItsPostsArrive) {
  server_.Serve("/new.xml", NumberedRss("Daily &amp; more", "http://daily.example/post", 2));
  CreateFrame();
  Select("기본 그룹");
  answers_.Next([this](QDialog& dialog) {
    QTest::keyClicks(&Box(dialog, 0), QString::fromStdString(server_.Url("/new.xml")));
    QTest::keyClick(&dialog, Qt::Key_Return);
    ASSERT_TRUE(WaitUntil([&] { return Box(dialog, 1).isEnabled(); }));
    EXPECT_EQ(Box(dialog, 1).text(), "Daily & more");
    QTest::keyClick(&dialog, Qt::Key_Return);
    EXPECT_FALSE(dialog.isVisible());
  });
  PressToolButton("채널 추가");
  EXPECT_EQ(TreeLabels()[2], "  Daily & more");
  ASSERT_TRUE(WaitForRunEnd());
  EXPECT_EQ(TreeLabels()[2], "  Daily & more(2)");
  EXPECT_EQ(Value("select channel_type || channel_htmllink || channel_order from TB_CHANNEL where "
                  "channel_title = 'Daily & more'"),
            "rsshttp://site.example/1");
}

TEST_F(FrameDialogs, AWebPageLeadsToItsFeedAndACheckThatHangsCanBeLeft) {
  server_.Serve("/", "<html><head><link rel=alternate type='application/rss+xml' href=feed.xml>",
                "text/html");
  server_.Serve("/feed.xml", NumberedRss("Announced", "", 1));
  server_.Hang("/hang");
  CreateFrame();
  answers_.Next([this](QDialog& dialog) {
    Box(dialog, 0).setText(QString::fromStdString(server_.Url("/")));
    answers_.Next([](QDialog& question) { QTest::keyClick(&question, Qt::Key_Return); });
    QTest::keyClick(&dialog, Qt::Key_Return);
    ASSERT_TRUE(WaitUntil([&] { return Box(dialog, 1).isEnabled(); }));
    EXPECT_EQ(Box(dialog, 0).text().toStdString(), server_.Url("/feed.xml"));
    EXPECT_EQ(Box(dialog, 1).text(), "Announced");
    Box(dialog, 0).setText(QString::fromStdString(server_.Url("/hang")));
    QTest::keyClick(&dialog, Qt::Key_Return);
    ASSERT_TRUE(WaitUntil([&] { return server_.Requests("/hang") == 1; }));
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
  });
  PressToolButton("채널 추가");
  EXPECT_TRUE(answers_.AreUsedUp());
  EXPECT_EQ(TreeLabels().size(), 4);
}

TEST_F(FrameDialogs, TheHostOpensTheControlPanelWhichIsStoredAndAppliedAtOnce) {
  server_.Serve("/story", "<html><body>The whole story</body></html>", "text/html");
  AddPosts(1, 1);
  Sql("update TB_POST set post_link = '" + server_.Url("/story") + "'");
  CreateFrame();
  Select("Feedloom 시작하기(1)");
  EXPECT_TRUE(NextPageText().contains("Text 1"));
  EXPECT_EQ(UpdateTimer().interval(), 900'000);
  EXPECT_EQ(NoticeTimer().interval(), 900'000);

  answers_.Next([this](QDialog& panel) {
    EXPECT_EQ(Send(kMessageOpenPanel), 0);  // once is enough
    Find<QRadioButton>(panel, "2시간").click();
    Find<QAbstractButton>(panel, "새글 알림").click();
    Find<QRadioButton>(panel, "알리지 않음").click();
    Find<QRadioButton>(panel, "원문 페이지로 봅니다.").click();
    Find<QLineEdit>(panel, "글을 남겨 둘 일수").setText("30");
    QTest::keyClick(&panel, Qt::Key_Return);
    EXPECT_FALSE(panel.isVisible());
  });
  EXPECT_EQ(Send(kMessageOpenPanel), 0);
  EXPECT_TRUE(answers_.AreUsedUp());
  EXPECT_TRUE(UpdateTimer().isActive());
  EXPECT_EQ(UpdateTimer().interval(), 7'200'000);
  EXPECT_FALSE(NoticeTimer().isActive());
  EXPECT_EQ(Setting("NewFeedDuration"), "3 3");
  EXPECT_EQ(Setting("NewFeedMsgDuration"), "3 3");
  EXPECT_EQ(Setting("PreviewMode"), "1 1");
  EXPECT_EQ(Setting("FeedDeleteDate"), "30 30");
  EXPECT_TRUE(WaitUntil([this] { return PageText() == "The whole story"; }));
}

TEST_F(FrameDialogs, ACancelledControlPanelChangesNothing) {
  CreateFrame();
  answers_.Next([](QDialog& panel) {
    Find<QRadioButton>(panel, "자동으로 받지 않습니다.").click();
    QTest::keyClick(&panel, Qt::Key_Escape);
  });
  Send(kMessageOpenPanel);
  EXPECT_TRUE(UpdateTimer().isActive());
  EXPECT_EQ(Setting("NewFeedMode"), "none none");
}

TEST_F(FrameDialogs, NewPostsAreAnnouncedOnceAndAClickListsTodays) {
  EXPECT_TRUE(profile_.TheRegistry().WriteString(kModuleKey, "NewFeedMsgTransparencyStr", "40"));
  CreateFrame();
  FireNoticeTimer();
  EXPECT_EQ(Announcement(), nullptr);  // there is nothing to say
  AddPosts(1, 3);
  Sql("update TB_POST set post_pubDate = datetime('now', 'localtime')");
  Send(kMessageChannelResult, kChannelRefreshed, 1);
  FireNoticeTimer();
  ASSERT_NE(Announcement(), nullptr);
  EXPECT_EQ(AnnouncedTexts(), (QStringList{"3 개", "업데이트된 새글의 수"}));
  EXPECT_NEAR(Announcement()->windowOpacity(), 0.6, 0.01);
  FireNoticeTimer();  // said already
  EXPECT_EQ(AnnouncedTexts().front(), "3 개");
  ASSERT_TRUE(WaitUntil([] { return Announcement()->height() == 98; }));
  QTest::mouseClick(Announcement(), Qt::LeftButton, {}, {100, 90});
  EXPECT_EQ(Announcement(), nullptr);
  EXPECT_EQ(ListedTitles().size(), 3);
  EXPECT_EQ(Value("select count(*) from TB_POST where post_readStatus = 1"), "1");
  FireNoticeTimer();
  EXPECT_EQ(Announcement(), nullptr);
  AddPosts(1, 1);
  Send(kMessageChannelResult, kChannelRefreshed, 1);
  FireNoticeTimer();
  ASSERT_NE(Announcement(), nullptr);  // there are as many unread posts as at the last time
  EXPECT_EQ(AnnouncedTexts().front(), "1 개");
}

TEST_F(FrameDialogs, AFrameMayEndWhileAnAnnouncementOrADialogIsOpen) {
  AddPosts(1, 1);
  CreateFrame();
  AddPosts(1, 1);
  Send(kMessageChannelResult, kChannelRefreshed, 1);
  FireNoticeTimer();
  ASSERT_NE(Announcement(), nullptr);
  answers_.Next([this](QDialog&) { Destroy(); });
  Send(kMessageOpenPanel);
  EXPECT_EQ(frame_, nullptr);
  EXPECT_EQ(Announcement(), nullptr);
}

}  // namespace
}  // namespace feedloom
