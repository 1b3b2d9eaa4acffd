// What the frame leads from one pane to another and out of the panes: dialogs and notices.

#include "check/FeedCheckAnswer.h"
#include "files/Path.h"
#include "kit/FeedDocuments.h"
#include "shell/ModuleFixture.h"
#include "ui/Commands.h"
#include "ui/list/PostCells.h"

namespace feedloom {

struct Panes : ModuleFixture {
  // What the windows say that announce new posts.
  QStringList Announced() {
    QMetaObject::invokeMethod(Columns().widget(0), "NoticeIsDue");
    return OnNotice();
  }
  QStringList OnNotice() {
    QStringList texts;
    for (auto* const label : frame_->findChildren<QLabel*>()) {
      if (!label->window()->inherits("feedloom::CRSS_AnnounceDlg") || !label->isVisible()) continue;
      announcement_ = label->window();
      texts << label->text();
    }
    texts.sort();
    return texts;
  }

  QPointer<QWidget> announcement_;
};

TEST_F(Panes, TheListStandsWhereTheHostWantsItWhileItKeepsSelectionAndSort) {
  AddPosts(1, 30);
  CreateFrame();
  auto& rows = dynamic_cast<QSplitter&>(*Columns().widget(1));
  Select("Feedloom 시작하기(30)");
  List().header()->setSortIndicator(kTitleColumn, Qt::DescendingOrder);
  const auto place = [&](const char* value, QSize size) {
    EXPECT_TRUE(Registry(profile_.Paths().registry).WriteString(kHostKey, kValueListPlace, value));
    frame_->resize(size);
    Send(kMessageViewChanged);
    EXPECT_EQ(Titles().front() + Titles().back(), "Post 9Post 1");
    EXPECT_EQ(List().currentIndex().data(), "Post 1");
    EXPECT_TRUE(List().viewport()->rect().contains(List().visualRect(List().currentIndex())));
    return QRect(rows.widget(0)->geometry());
  };
  EXPECT_EQ(place("", {1000, 700}).height(), 200);
  EXPECT_NEAR(place("above", {1000, 690}).height(), 230, 5);
  EXPECT_EQ(place("beside", {1300, 700}).height(), 700);
  EXPECT_TRUE(List().isHeaderHidden() && List().columnWidth(kTitleColumn) > 300);
  EXPECT_EQ(List().visualRect(List().currentIndex()).height(), 44);
  for (const auto& sizes : {QList{9'999, 0}, {0, 9'999}}) {
    rows.setSizes(sizes);
    for (const auto* button : rows.findChildren<QAbstractButton*>())
      EXPECT_TRUE(!button->isVisible() ||
                  button->parentWidget()->rect().contains(button->geometry()));
  }
  EXPECT_EQ(rows.handle(1)->accessibleName(), "글 목록의 너비");
  frame_->resize(640, 480);
  EXPECT_EQ(rows.handle(1)->accessibleName(), "글 목록의 높이");
  frame_->resize(1300, 700);
  EXPECT_EQ(place("", {1300, 700}).height(), 200);
  place("beside", {1300, 700});
  EXPECT_LT(place("beside", {640, 480}).height(), 200) << "no room for three columns";
  EXPECT_EQ(frame_->width(), 640);
  EXPECT_EQ(List().columnWidth(kTitleColumn), 278);
}

TEST_F(Panes, AChannelGetsTheIconOfItsSiteBehindARefreshWhenTheHostWantsIt) {
  const auto want = [this](const char* value) {
    EXPECT_TRUE(profile_.TheRegistry().WriteString(kHostKey, kValueIcons, value));
    if (frame_ != nullptr) Send(kMessageViewChanged);
  };
  const auto icon = [this] {
    const auto channel = Tree().model()->index(0, 0, Tree().model()->index(0, 0));
    return channel.data(Qt::DecorationRole).value<QPixmap>();
  };
  QByteArray png;
  QBuffer buffer(&png);
  QPixmap(16, 16).save(&buffer, "PNG");
  server_.Serve("/favicon.ico", png.toStdString());
  server_.Serve("/feed", NumberedRss("Feed", server_.Url("/"), 1));
  Sql("update TB_CHANNEL set channel_xmllink = '" + server_.Url("/feed") +
      "', channel_htmllink = ''");
  CreateFrame();
  Send(kMessageRefreshAll);
  EXPECT_TRUE(WaitForRun());
  EXPECT_EQ(server_.Requests("/favicon.ico"), 0) << "a host that says nothing";
  want(kIconsOn);
  EXPECT_TRUE(WaitUntil([&] { return !icon().isNull(); }));
  want(kIconsOff);
  EXPECT_TRUE(icon().isNull());
  Destroy();
  std::filesystem::remove_all(JoinPath(HostConfig(profile_.TheRegistry()).GetWorkDir(), "icons"));
  want(kIconsOn);
  CreateFrame();
  EXPECT_TRUE(icon().isNull());
  Send(kMessageRefreshAll);
  EXPECT_TRUE(WaitUntil([&] { return !icon().isNull(); }));
  EXPECT_EQ(server_.Requests("/favicon.ico"), 2);
  Destroy();
  CreateFrame();
  EXPECT_TRUE(WaitUntil([&] { return !icon().isNull(); })) << "it is kept";
  EXPECT_EQ(server_.Requests("/favicon.ico"), 2);
}

TEST_F(Panes, WhatOnePaneTellsTheOthersShow) {
  server_.Serve("/search", "[TO]0[QK]");
  lookup_.HostGetText = [this, texts = lookup_.HostGetText](const char* section, const char* key) {
    return key == std::string(kTextDirectoryService) ? server_.Url("/search") : texts(section, key);
  };
  AddPosts(1, 4);
  CreateFrame();
  auto& subscribing = The<Subscribing>();
  auto& reading = The<Reading>();
  Select("Feedloom 시작하기(4)");
  EXPECT_EQ(Titles().size(), 4);
  EXPECT_TRUE(Shows("Text 1"));
  subscribing.FolderWasAdded({.name = "Group", .id = 2});
  subscribing.CabinetWasAdded({.id = 2, .title = "Cabinet"});
  subscribing.ChannelWasAdded({{2, 1, 1, "Daily", "http://b/"}, 1});
  subscribing.ChannelWasMoved(2, 2);
  reading.UnreadPostWasSaved(1);
  PostRow read;
  read.ownerId = 1;
  reading.PostWasRead(read, false);
  EXPECT_EQ(Labels(), (QStringList{"기본 그룹(2)", "  Feedloom 시작하기(2)", "Group(1)",
                                   "  Daily(1)", "보관함(1)", "  내 보관함(1)", "  Cabinet"}));
  Tree().setFocus();
  Press("N");
  EXPECT_EQ(List().currentIndex().data(), "Post 2");
  const std::vector<PostRow> posts{{0, 3, "", "", "", "", "Found", "", ""}};
  reading.ListPosts(ListMode::Selection, {posts, false, true});
  reading.ReloadSelection();
  EXPECT_EQ(Titles(), QStringList{"Post 3"}) << "as the store has it now";
  reading.RelistPosts({posts, true});  // another post with this id
  EXPECT_FALSE(List().selectionModel()->hasSelection());
  reading.ListPosts(ListMode::Selection, {posts});
  reading.RelistPosts({posts});
  EXPECT_TRUE(List().selectionModel()->hasSelection());
  reading.ReloadSelection();
  EXPECT_EQ(Titles().size(), 4);
  Tree().setFocus();
  Press("Ctrl+F, W, Return");
  EXPECT_TRUE(WaitUntil([this] { return server_.Requests("/search") == 1; }));
}

TEST_F(Panes, AChannelIsCheckedAddedAndRefreshedFromTheServerToTheScreen) {
  server_.Serve("/new.xml", NumberedRss("Daily &amp; more", "http://daily.example/post", 2));
  CreateFrame();
  answers_.Next([](QDialog& dialog) {
    QTest::keyClick(&dialog, Qt::Key_Return);
    const auto boxes = dialog.findChildren<QLineEdit*>();
    ASSERT_TRUE(WaitUntil([&] { return boxes[1]->isEnabled(); }));
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  Select("기본 그룹");
  The<Subscribing>().AddChannel(server_.Url("/new.xml"));
  ASSERT_TRUE(WaitForRun());
  Select("Daily & more(2)");
  EXPECT_TRUE(Shows("Text 1"));
  server_.Hang("/new.xml");
  Press("F5");
  ASSERT_TRUE(WaitUntil([this] { return frame_->cursor().shape() == Qt::WaitCursor; }));
  server_.Serve("/new.xml", NumberedRss("New", "http://daily.example/post", 3));
  ASSERT_TRUE(WaitForRun());
  EXPECT_NE(frame_->cursor().shape(), Qt::WaitCursor);
  EXPECT_TRUE(WaitUntil([this] { return Titles() == QStringList{"Post 1", "Post 2", "Post 3"}; }));
  EXPECT_EQ(Sql("select count(*) from TB_POST where post_channelID = 1"), "0");
  Press("Shift+F5");
  ASSERT_TRUE(WaitForRun());
  EXPECT_NE(Sql("select count(*) from TB_POST where post_channelID = 1"), "0");
}

TEST_F(Panes, TheControlPanelIsStoredAndAppliedAtOnce) {
  server_.Serve("/story", "<html><body>The whole story</body></html>", "text/html");
  AddPosts(1, 1);
  Sql("update TB_POST set post_link = '" + server_.Url("/story") + "'");
  CreateFrame();
  Select("Feedloom 시작하기(1)");
  EXPECT_TRUE(Shows("Text 1"));
  answers_.Next([](QDialog& panel) { panel.reject(); });
  Send(kMessageOpenPanel);
  EXPECT_EQ(The<Desk>().State().liveSettings, Settings());
  const QStringList choices{"2시간", "새 글 알림", "알리지 않음", "원문 페이지"};
  answers_.Next([&](QDialog& panel) {
    Send(kMessageOpenPanel);  // once is enough
    for (auto* const button : panel.findChildren<QAbstractButton*>())
      if (choices.contains(button->text()) || choices.contains(button->accessibleName()))
        button->click();
    QTest::keyClick(&panel, Qt::Key_Return);
  });
  Send(kMessageOpenPanel);
  EXPECT_EQ(The<Desk>().State().liveSettings, (Settings{0, 3, 3, 0, 1, 1, 30}));
  const auto slowTimers = [this] {
    const auto timers = Columns().widget(0)->findChildren<QTimer*>();
    return std::ranges::count(timers, 7'200'000, &QTimer::interval);
  };
  EXPECT_EQ(slowTimers(), 1);
  EXPECT_TRUE(Shows("The whole story"));
  Destroy();
  CreateFrame();
  EXPECT_EQ(slowTimers(), 1) << "of the frame that a host makes in place of the first";
  The<Desk>().State().liveSettings = {};  // the other tests of this program begin with these
}

TEST_F(Panes, NewPostsAreAnnouncedOnceAndAClickListsTodays) {
  ASSERT_TRUE(Registry(profile_.Paths().registry).WriteString(kHostKey, kValueNotice, ""));
  CreateFrame();
  EXPECT_EQ(Announced(), QStringList());
  for (const char* count : {"3 개", "1 개"}) {
    AddPosts(1, count[0] - '0');
    Sql("update TB_POST set post_pubDate = datetime('now', 'localtime')");
    Refresh({1});
    EXPECT_EQ(Announced(), (QStringList{count, "업데이트된 새글의 수"}));
    EXPECT_EQ(Announced().size(), 2);
  }
  ASSERT_TRUE(WaitUntil([this] { return announcement_->height() == 98; }));
  host_->setWindowState(Qt::WindowMinimized);
  QTest::mouseClick(announcement_, Qt::LeftButton, {}, {100, 90});
  EXPECT_FALSE(host_->isMinimized());
  EXPECT_EQ(Titles().size(), 4);
  EXPECT_EQ(Announced(), QStringList());
  AddPosts(1, 1);
  Refresh({1});
  EXPECT_EQ(Announced().front(), "1 개");  // as many are unread as at the last time
}

TEST_F(Panes, NewPostsAreAnnouncedBehindTheirRefreshByChannelAndAClickListsJustThose) {
  ASSERT_TRUE(profile_.TheRegistry().WriteString(kHostKey, kValueNotice, kNoticeChannels));
  Sql("delete from TB_CHANNEL");
  for (const std::string id : {"1", "2", "3", "4"}) {
    server_.Serve("/" + id, NumberedRss("Feed", "http://" + id + "/", 1));
    Sql("insert into TB_CHANNEL(channel_title, channel_xmllink, channel_folderID, channel_order) "
        "values ('C" +
        id + "', '" + server_.Url("/" + id) + "', 1, " + id + ")");
    AddPosts(std::stoi(id), 1);
  }
  server_.Serve("/3", NumberedRss("Feed", "http://3/", 20));
  CreateFrame();
  Send(kMessageRefreshAll);
  EXPECT_TRUE(WaitForRun());
  const QStringList told{"1", "1", "20", "C1", "C2", "C3", "새 글 23개", "외 채널 1개"};
  EXPECT_EQ(OnNotice(), told);
  ASSERT_TRUE(WaitUntil([this] { return announcement_->height() == 98; }));
  QTest::mouseClick(announcement_, Qt::LeftButton, {}, {100, 90});
  EXPECT_EQ(Titles().size(), 23) << "the four older ones are unread, too";
  server_.Serve("/1", NumberedRss("Feed", "http://1/", 2));
  Send(kMessageRefreshAll);
  EXPECT_TRUE(WaitForRun());
  EXPECT_EQ(Announced(), QStringList()) << "the period is not over";
  EXPECT_EQ(news_.join('/').replace('\t', '|').replace('\n', ' '),
            "23: C3|20|Post 1 C1|1|Post 1 C2|1|Post 1 C4|1|Post 1/1: C1|1|Post 2")
      << "the host has its own";
  Send(kMessageShowNewPosts);
  EXPECT_EQ(Titles(), QStringList{"Post 2"});
  EXPECT_EQ(counts_.front(), 4);
  EXPECT_TRUE(WaitUntil([this] { return counts_.back() == 26; })) << "two are read";
}

}  // namespace feedloom
