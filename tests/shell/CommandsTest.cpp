// Commands that reach from one pane to the others, with the keys and dialogs that a user meets.
#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <QWebEnginePage>
#include <QWebEngineView>
#include <algorithm>
#include <memory>

#include "shell/ModuleFixture.h"
#include "skin/Keys.h"
#include "ui/Commands.h"

namespace feedloom {
namespace {

class PaneCommands : public ModuleFixture {
 protected:
  // Right click on a row of the list or the tree and a command of its menu; dialogs that come up
  // are confirmed with Enter.
  void ChooseInList(int row, int command) {
    Choose(List(), List().model()->index(row, 1), command);
  }
  void ChooseInTree(int command) { Choose(Tree(), Tree().currentIndex(), command); }

  void Choose(QTreeView& view, const QModelIndex& row, int command) {
    const QPoint place = view.visualRect(row).center();
    QTest::mouseClick(view.viewport(), Qt::RightButton, {}, place);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, view.viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(view.viewport(), &event);
    const auto actions = qobject_cast<QMenu*>(QApplication::activePopupWidget())->actions();
    const auto action = std::ranges::find_if(
        actions, [&](const QAction* candidate) { return candidate->data().toInt() == command; });
    ASSERT_NE(action, actions.end());
    const auto enter = ConfirmDialogs();
    (*action)->trigger();
    QApplication::activePopupWidget()->close();
    QCoreApplication::processEvents();
  }

  // As long as the object lives.
  static std::unique_ptr<QTimer> ConfirmDialogs() {
    auto enter = std::make_unique<QTimer>();
    QObject::connect(enter.get(), &QTimer::timeout, [] {
      if (QWidget* const dialog = QApplication::activeModalWidget()) {
        QTest::keyClick(dialog, Qt::Key_Return);
      }
    });
    enter->start(0);
    return enter;
  }

  // In the page that the last Select has led to.
  void PressSaveButton() {
    NextPageText();
    frame_->findChild<QWebEngineView*>()->page()->runJavaScript(
        "document.querySelector('[href^=ID_BTN_RSSSCRAP]').click()", 1);
  }

  // In the store.
  void SearchFor(const QString& word) {
    QTest::keyClick(&Tree(), Qt::Key_F, Qt::ControlModifier);
    QWidget* const box = QApplication::focusWidget();
    box->parentWidget()->findChild<QComboBox*>()->setCurrentIndex(1);
    QTest::keyClicks(box, word);
    QTest::keyClick(box, Qt::Key_Return);
  }

  void PressInList(Qt::Key key) { QTest::keyClick(&List(), key); }
};

TEST_F(PaneCommands, WhatTheListChangesTheTreeCounts) {
  AddPosts(1, 4);
  CreateFrame();
  Select("Feedloom 시작하기(4)");
  EXPECT_EQ(TreeLabels()[1], "  Feedloom 시작하기(3)");
  ChooseInList(0, kCommandMarkUnread);
  EXPECT_EQ(TreeLabels()[1], "  Feedloom 시작하기(4)");
  ChooseInList(2, kCommandDelete);
  EXPECT_EQ(ListedTitles(), (QStringList{"Post 1", "Post 2", "Post 4"}));
  EXPECT_EQ(TreeLabels()[0], "기본 그룹(2)");  // the next one was shown
  ChooseInList(0, kCommandScrap);
  EXPECT_EQ(TreeLabels().mid(2), (QStringList{"보관함(1)", "  내 보관함(1)"}));
  ChooseInList(0, kCommandDeleteAll);
  EXPECT_EQ(ListedTitles(), QStringList());
  EXPECT_EQ(TreeLabels()[1], "  Feedloom 시작하기");
  EXPECT_EQ(Value("select count(*) from TB_POST"), "0");
  EXPECT_EQ(Value("select scrap_post_title from TB_SCRAP_POST"), "Post 1");
}

TEST_F(PaneCommands, NGoesThroughAllUnreadPostsOfAllRows) {
  AddPosts(1, 2);
  AddPosts(AddChannel("Other", "/other.xml"), 2);
  CreateFrame();
  QTest::keyClick(&Tree(), Qt::Key_N);
  EXPECT_EQ(Tree().currentIndex().data(), "Feedloom 시작하기(1)");
  PressInList(Qt::Key_N);
  EXPECT_EQ(Tree().currentIndex().data(), "Feedloom 시작하기");
  PressInList(Qt::Key_N);
  EXPECT_EQ(Tree().currentIndex().data(), "Other(1)");
  PressInList(Qt::Key_N);
  PressInList(Qt::Key_N);
  EXPECT_EQ(Tree().currentIndex().data(), "Other");
  EXPECT_EQ(Value("select count(*) from TB_POST where post_readStatus = 0"), "0");
}

TEST_F(PaneCommands, CtrlFSearchesAllPostsAndARefreshLeavesTheResultAlone) {
  AddPosts(1, 12);
  CreateFrame();
  Select("Feedloom 시작하기(12)");
  SearchFor("post 1");
  const QStringList found{"Post 1", "Post 10", "Post 11", "Post 12"};
  EXPECT_EQ(ListedTitles(), found);
  EXPECT_EQ(TreeLabels()[1], "  Feedloom 시작하기(11)");  // both first posts were Post 1
  Send(kMessageChannelResult, kChannelRefreshed, 1);
  EXPECT_EQ(ListedTitles(), found);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
  EXPECT_TRUE(List().hasFocus());
  PressInList(Qt::Key_N);
  EXPECT_EQ(TreeLabels()[1], "  Feedloom 시작하기(10)");
}

TEST_F(PaneCommands, MarkingTheTreesRowListsItsPostsInPlaceOfASearch) {
  AddPosts(1, 3);
  Sql("insert into TB_SCRAP_POST(scrap_post_id, scrap_post_scrapChannelID, scrap_post_title) "
      "values(1, 1, 'Saved')");
  CreateFrame();
  Select("내 보관함(1)");
  SearchFor("post");
  ASSERT_EQ(List().currentIndex().data(), "Post 1");  // its id is the saved post's
  ChooseInTree(kCommandMarkAllUnread);
  EXPECT_EQ(ListedTitles(), QStringList{"Saved"});
  EXPECT_FALSE(List().selectionModel()->hasSelection());
}

TEST_F(PaneCommands, F5RefreshesTheSelectionAndWithShiftEverything) {
  server_.Serve("/other.xml", "<rss><channel><title>O</title></channel></rss>");
  const int other = AddChannel("Other", "/other.xml");
  CreateFrame();
  Select("Other");
  QTest::keyClick(&List(), Qt::Key_F5);
  ASSERT_TRUE(WaitForRunEnd());
  EXPECT_EQ(server_.Requests("/other.xml"), 1);
  EXPECT_EQ(Value("select count(*) from TB_POST"), "0");  // not the sample channel
  host_->windowMessages.clear();
  QTest::keyClick(&Tree(), Qt::Key_F5, Qt::ShiftModifier);
  ASSERT_TRUE(WaitForRunEnd());
  EXPECT_NE(Value("select count(*) from TB_POST where post_channelID <> " + std::to_string(other)),
            "0");
}

TEST_F(PaneCommands, TheSaveButtonOfAPostsPageSavesItAndTheTreeCountsIt) {
  AddPosts(1, 2);
  CreateFrame();
  Select("Feedloom 시작하기(2)");
  const auto enter = ConfirmDialogs();
  PressSaveButton();
  ASSERT_TRUE(WaitUntil([&] { return Value("select count(*) from TB_SCRAP_POST") == "1"; }));
  EXPECT_EQ(Value("select scrap_post_title from TB_SCRAP_POST"), "Post 1");
  EXPECT_EQ(TreeLabels().mid(2), (QStringList{"보관함(1)", "  내 보관함(1)"}));
  EXPECT_EQ(host_->texts.back(), "글을 보관함에 저장했습니다.");
}

TEST_F(PaneCommands, TheRegistryKeepsPicturesOfTheWebOut) {
  AddPosts(1, 1);
  Sql("update TB_POST set post_desc = '<img src=\"" + server_.Url("/picture.png") + "\">'");
  ASSERT_TRUE(profile_.TheRegistry().WriteDword(kModuleKey, kValueBlockRemoteImages, 1));
  CreateFrame();
  Select("Feedloom 시작하기(1)");
  NextPageText();
  EXPECT_EQ(server_.Requests("/picture.png"), 0);
  ASSERT_TRUE(profile_.TheRegistry().WriteDword(kModuleKey, kValueBlockRemoteImages, 0));
  Select("Feedloom 시작하기");
  EXPECT_TRUE(WaitUntil([&] { return server_.Requests("/picture.png") == 1; }));
}

}  // namespace
}  // namespace feedloom
