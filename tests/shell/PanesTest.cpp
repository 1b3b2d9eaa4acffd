// What the frame leads from one pane to another and out of the panes: dialogs, files and notices.
#include <QLabel>
#include <QRadioButton>

#include "exchange/ListDocuments.h"
#include "ingest/FeedCheckAnswer.h"
#include "kit/FeedDocuments.h"
#include "shell/ModuleFixture.h"

namespace feedloom {
namespace {

class Panes : public ModuleFixture {
 protected:
  // The timer of the tree's pane that refreshes fires once, the one that announces again and again.
  QTimer& Timer(bool firesOnce) {
    const auto timers =
        Part("CRSS_LeftContainer").findChildren<QTimer*>(Qt::FindDirectChildrenOnly);
    return *timers[timers[0]->isSingleShot() == firesOnce ? 0 : 1];
  }
  // What the windows say that announce new posts, after a while.
  QStringList Announced() {
    QMetaObject::invokeMethod(&Timer(false), "timeout");
    QStringList texts;
    for (QWidget* const window : QApplication::topLevelWidgets()) {
      if (!window->inherits("feedloom::CRSS_AnnounceDlg") || !window->isVisible()) continue;
      announcement_ = window;
      for (auto* const label : window->findChildren<QLabel*>()) texts << label->text();
    }
    texts.sort();
    return texts;
  }

  TempFolder files_;
  QPointer<QWidget> announcement_;
};

TEST_F(Panes, WhatOnePaneTellsTheOthersShow) {
  AddPosts(1, 4);
  CreateFrame();
  Frame& frame = TheFrame();
  Select("Feedloom 시작하기(4)");
  EXPECT_EQ(Titles().size(), 4);
  EXPECT_TRUE(PageText().contains("Text 1"));
  frame.FolderWasAdded({.name = "Group", .id = 2});
  frame.CabinetWasAdded({.id = 2, .title = "Cabinet"});
  frame.ChannelWasAdded({"Daily", "http://b/", 2, 1, 1, 1, 0});
  frame.ChannelWasMoved(2, 2);
  frame.PostIsSaved(1);
  PostRow read;
  read.ownerId = 1;
  frame.PostWasRead(read, false);
  EXPECT_EQ(Labels(), (QStringList{"기본 그룹(2)", "  Feedloom 시작하기(2)", "Group(1)",
                                   "  Daily(1)", "보관함(1)", "  내 보관함(1)", "  Cabinet"}));
  frame.GoToUnreadPost(true);
  EXPECT_EQ(List().currentIndex().data(), "Post 2");
  frame.GoToUnreadPost(false);
  frame.GoToUnreadRow(true);
  EXPECT_EQ(Tree().currentIndex().data(), "Daily(1)");
  frame.GoToUnreadRow(false);
  EXPECT_EQ(Tree().currentIndex().data().toString().left(8), "Feedloom");
  const std::vector<PostRow> posts{{0, 3, "", "", "", "", "Found", "", ""}};
  frame.ListPosts(ListMode::Selection, {posts, false, true});
  frame.ReloadSelection();
  EXPECT_EQ(Titles(), QStringList{"Found"});
  frame.RelistPosts({posts, true});  // another post with this id
  EXPECT_FALSE(List().selectionModel()->hasSelection());
  frame.ListPosts(ListMode::Selection, {posts});
  frame.RelistPosts({posts});
  EXPECT_TRUE(List().selectionModel()->hasSelection());
  frame.ReloadSelection();
  EXPECT_EQ(Titles().size(), 4);
  frame.FocusSearch();
  EXPECT_EQ(qobject_cast<QLineEdit*>(QApplication::focusWidget())->accessibleName(), "검색어");
}

TEST_F(Panes, EachActionOpensItsDialog) {
  CreateFrame();
  const Actions& actions = TheFrame().GetActions();
  const ChannelFacts facts{1, "Daily", "http://a/", 1, "기본 그룹"};
  const std::pair<std::function<void()>, const char*> cases[] = {
      {[&] { actions.askSearchWord(); }, "검색"},
      {[&] { actions.chooseCabinet(); }, "스크랩"},
      {[&] { actions.askGroupName("a"); }, "그룹 이름 변경"},
      {[&] { actions.askChannelName(facts); }, "채널 이름 변경"},
      {[&] { actions.askCabinetName("a"); }, "보관함 이름 변경"},
      {[&] { actions.askDownloadPlace("a"); }, "파일 저장"},
      {[&] { actions.addGroup(); }, "그룹"},
      {[&] { actions.addCabinet(); }, "보관함 추가"},
      {[&] { actions.moveChannel(facts); }, "그룹"},
      {[&] { actions.showChannelInfo(facts); }, "채널 정보"},
      {[&] { actions.openDirectory(); }, "채널 디렉터리"},
      {[&] { actions.synchronise(); }, "핸드셋과 동기화"}};
  for (const auto& [act, title] : cases) {
    answers_.Next([title](QDialog& dialog) {
      EXPECT_EQ(dialog.windowTitle(), title);
      dialog.reject();
    });
    act();
  }
}

TEST_F(Panes, AChannelIsCheckedAddedAndItsPostsArrive) {
  server_.Serve("/new.xml", NumberedRss("Daily &amp; more", "http://daily.example/post", 2));
  server_.Hang("/hang");
  CreateFrame();
  std::string checked;
  TheFrame().CheckFeed(server_.Url("/hang"), [&](const auto&) { checked += "late"; });
  TheFrame().StopFeedCheck();
  TheFrame().CheckFeed(server_.Url("/new.xml"), [&](const auto& feed) { checked += feed.title; });
  EXPECT_TRUE(WaitUntil([&] { return checked == "Daily &amp; more"; })) << checked;
  answers_.Next([this](QDialog& dialog) {
    QTest::keyClick(&dialog, Qt::Key_Return);
    const auto boxes = dialog.findChildren<QLineEdit*>();
    ASSERT_TRUE(WaitUntil([&] { return boxes[1]->isEnabled(); }));
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  Select("기본 그룹");
  TheFrame().AddChannel(server_.Url("/new.xml"));
  EXPECT_EQ(Labels()[2], "  Daily & more");
  ASSERT_TRUE(WaitForRunEnd());
  EXPECT_EQ(Labels()[2], "  Daily & more(2)");
  Select("Daily & more(2)");
  for (const char* keys : {"F5", "Shift+F5"}) {
    EXPECT_EQ(Sql("select count(*) from TB_POST"), "2");
    numbers_.clear();
    Press(keys);
    ASSERT_TRUE(WaitForRunEnd());
  }
  EXPECT_EQ(server_.Requests("/new.xml"), 5);
  EXPECT_NE(Sql("select count(*) from TB_POST"), "2");  // the sample's, too
}

TEST_F(Panes, TheHostsValuesSayWhereTheDirectoryIsAndWhetherPicturesAreShown) {
  server_.Serve("/search", "[TO]0[QK]");
  lookup_.HostGetText = [this](const char*, const char* key) {
    return key == std::string(kTextDirectoryService) ? server_.Url("/search") : "";
  };
  CreateFrame();
  TheFrame().FocusSearch();
  Press("W, Return");
  EXPECT_TRUE(WaitUntil([this] { return server_.Requests("/search") == 1; }));
  EXPECT_TRUE(TheFrame().ShowsRemoteImages());
  for (const unsigned isBlocked : {1, 0}) {
    ASSERT_TRUE(profile_.TheRegistry().WriteDword(kModuleKey, kValueBlockRemoteImages, isBlocked));
    EXPECT_EQ(TheFrame().ShowsRemoteImages(), isBlocked == 0);
  }
}

TEST_F(Panes, TheControlPanelIsStoredAndAppliedAtOnce) {
  server_.Serve("/story", "<html><body>The whole story</body></html>", "text/html");
  AddPosts(1, 1);
  Sql("update TB_POST set post_link = '" + server_.Url("/story") + "'");
  CreateFrame();
  Select("Feedloom 시작하기(1)");
  EXPECT_TRUE(PageText().contains("Text 1"));
  answers_.Next([](QDialog& panel) { panel.reject(); });
  Send(kMessageOpenPanel);
  EXPECT_EQ(TheFrame().State().liveSettings, Settings());
  answers_.Next([this](QDialog& panel) {
    EXPECT_EQ(Send(kMessageOpenPanel), 0);  // once is enough
    Named<QRadioButton>(panel, "2시간").click();
    Named<QAbstractButton>(panel, "새글 알림").click();
    Named<QRadioButton>(panel, "알리지 않음").click();
    Named<QRadioButton>(panel, "원문 페이지로 봅니다.").click();
    Named<QLineEdit>(panel, "글을 남겨 둘 일수").setText("30");
    QTest::keyClick(&panel, Qt::Key_Return);
  });
  Send(kMessageOpenPanel);
  EXPECT_EQ(TheFrame().State().liveSettings, (Settings{0, 3, 3, 0, 1, 1, 30}));
  EXPECT_EQ(Timer(true).interval(), 7'200'000);
  EXPECT_FALSE(Timer(false).isActive());
  EXPECT_TRUE(WaitUntil([this] { return PageText() == "The whole story"; }));
  Destroy();
  CreateFrame();
  EXPECT_EQ(TheFrame().State().liveSettings, Settings());
  Select("Feedloom 시작하기");
  EXPECT_EQ(PageText(), "The whole story");
}

TEST_F(Panes, NewPostsAreAnnouncedOnceAndAClickListsTodays) {
  Set("NewFeedMsgTransparencyStr", "40");
  CreateFrame();
  EXPECT_EQ(Announced(), QStringList());
  for (const char* count : {"3 개", "1 개"}) {
    AddPosts(1, count[0] - '0');
    Sql("update TB_POST set post_pubDate = datetime('now', 'localtime')");
    Send(kMessageChannelResult, kChannelRefreshed, 1);
    for (int i = 0; i < 2; ++i) {
      EXPECT_EQ(Announced(), (QStringList{count, "업데이트된 새글의 수"}));
    }
    EXPECT_NEAR(announcement_->windowOpacity(), 0.6, 0.01);
  }
  ASSERT_TRUE(WaitUntil([this] { return announcement_->height() == 98; }));
  QWidget other;
  other.show();
  other.activateWindow();
  host_->setWindowState(Qt::WindowMinimized);
  ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
  QTest::mouseClick(announcement_, Qt::LeftButton, {}, {100, 90});
  EXPECT_FALSE(host_->isMinimized());
  EXPECT_TRUE(QTest::qWaitForWindowActive(host_.get()));
  EXPECT_EQ(Titles().size(), 4);
  EXPECT_EQ(Announced(), QStringList());
  EXPECT_EQ(Sql("select count(*) from TB_POST where post_readStatus = 1"), "1");
  AddPosts(1, 1);
  Send(kMessageChannelResult, kChannelRefreshed, 1);
  EXPECT_EQ(Announced().front(), "1 개");  // as many are unread as at the last time
}

TEST_F(Panes, ListsGoToFilesAndComeFromFilesAndAddresses) {
  server_.Serve("/one", NumberedRss("Feed's own title", "http://one.example/", 2));
  server_.Serve("/mine.opml", OpmlDocument(FeedOutline("two", server_.Url("/two"))));
  CreateFrame();
  const Actions& actions = TheFrame().GetActions();
  const std::string one = FeedOutline("one", server_.Url("/one"));
  const std::string list =
      "<outline text='New'>" + one + FeedOutline("no", "file:///") + "</outline>";
  Answer(files_.Write("list.opml", OpmlDocument(list)));
  actions.importFile();
  ASSERT_TRUE(WaitForText("채널 목록을 가져왔습니다: 추가 1, 이미 있음 0, 제외 1") &&
              WaitForRunEnd());
  Answer(server_.Url("/mine.opml"));
  actions.importAddress();
  ASSERT_TRUE(WaitForText("채널 목록을 가져왔습니다: 추가 1, 이미 있음 0, 제외 0"));
  EXPECT_EQ(Labels(), (QStringList{"기본 그룹", "  Feedloom 시작하기", "New(2)", "  one(2)", "mine",
                                   "  two", "보관함", "  내 보관함"}));
  Answer(files_.File("out"));
  actions.exportOpml("a");
  EXPECT_EQ(texts_.back(), "채널 3개를 OPML 파일로 저장했습니다.");
  EXPECT_NE(files_.Read("out.xml").find("text=\"one\" title=\"one\""), std::string::npos);
  EXPECT_EQ(TheFrame().ExportOpml("/no/such/folder/list"), std::nullopt);
  EXPECT_TRUE(texts_.back().starts_with("OPML 파일을 저장하지 못했습니다: ")) << texts_.back();
  std::vector<std::optional<ImportSums>> merged;
  for (const std::string& merge :
       {"<outline text='New'>" + one + one + "</outline>", std::string("<")}) {
    TheFrame().MergeOpml(files_.Write("merge", OpmlDocument(merge)),
                         [&](const auto& sums) { merged.push_back(sums); });
    ASSERT_TRUE(WaitUntil([&, count = merged.size()] { return merged.size() > count; }));
  }
  EXPECT_EQ(merged[0]->present, 2);
  EXPECT_EQ(merged[1], std::nullopt);
  Answer();  // to the message that it cannot be read
  TheFrame().ImportOpml({.place = files_.File("merge")});
  EXPECT_TRUE(WaitUntil([&] { return answers_.AreUsedUp(); }));
  EXPECT_TRUE(texts_.back().starts_with("채널 목록을 가져오지 못했습니다: it cannot be read"));
  EXPECT_EQ(Labels().size(), 8);
}

}  // namespace
}  // namespace feedloom
