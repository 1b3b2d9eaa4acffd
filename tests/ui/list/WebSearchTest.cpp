// The web directory in the list: pages, failures, and the list while a search runs.
#include <QCursor>
#include <QShortcut>
#include <QSignalSpy>
#include <QWindow>

#include "ui/list/DirectoryService.h"
#include "ui/list/ListPaneFixture.h"

namespace feedloom {
namespace {

class WebSearchTest : public PostListPane {
 protected:
  WebSearchTest() {
    frame_.listPane = &pane_;
    frame_.directoryService = service_.Address();
    word_.setText("word");
  }
  void ListPosts(int newest, ListMode mode = ListMode::Selection) {
    frame_.ListPosts(mode, NumberedPosts(newest), FirstShown::First);
  }
  void WaitForEnd() {
    EXPECT_TRUE(QTest::qWaitFor([&] { return list_.isEnabled(); }));
  }
  void Search() {
    button_.click();
    WaitForEnd();
  }
  // A search without an end, over a list with so many other posts.
  void BeginEndlessOver(int rows) {
    ListPosts(rows);
    service_.Hang(1);
    button_.click();
    EXPECT_TRUE(QTest::qWaitFor([&] { return service_.Requests(1) == 1; }));
  }
  void PressEnd() {
    Key(Qt::Key_End);
    QApplication::processEvents();  // the request is made behind the key
  }
  bool CanWaitForRows(int rows) {
    return QTest::qWaitFor([&] { return RowCount() == rows; });
  }
  std::string Text(const char* key) const { return frame_.GetSkin().GetText(kSectionTexts, key); }

  DirectoryService service_;
};

TEST_F(WebSearchTest, TakesTheFirstPageAndFurtherOnesAtTheEndOfTheList) {
  service_.ServeTwoPages();
  ListPosts(3);
  Search();
  EXPECT_EQ(frame_.state.listMode, ListMode::WebDirectory);
  EXPECT_EQ(RowCount(), 50);
  EXPECT_EQ(bar_.accessibleDescription(), "검색결과 : 50건");
  EXPECT_EQ(frame_.messages, (Strings{Text(kTextDirectorySearching), ""}));
  service_.Fail(2);
  PressEnd();
  WaitForEnd();
  EXPECT_EQ(frame_.messages.back(), Text(kTextDirectoryFailed));
  service_.ServeTwoPages();  // a page that did not come is asked for again
  list_.verticalScrollBar()->setValue(0);
  list_.verticalScrollBar()->triggerAction(QAbstractSlider::SliderToMaximum);
  const int place = list_.verticalScrollBar()->value();
  EXPECT_TRUE(CanWaitForRows(73));
  EXPECT_EQ(list_.verticalScrollBar()->value(), place);
  EXPECT_EQ(bar_.accessibleDescription(), "검색결과 : 73건");
  EXPECT_EQ(Title(72) + " " + Selected(), "Title 73 Title 50 ");
  PressEnd();
  EXPECT_TRUE(list_.isEnabled()) << "there is no third page";
  EXPECT_EQ(frame_.lists.size(), 2U);
  EXPECT_EQ(frame_.shown, (Strings{"Post 3", "Title 1"}));
}

TEST_F(WebSearchTest, KeepsThePlaceInASortedListAndAsksByEndAlsoWhenAllRowsFit) {
  service_.ServeTwoPages();
  Search();
  list_.header()->setSortIndicator(kTitleColumn, Qt::DescendingOrder);
  Key(Qt::Key_Home);
  for (int page = 0; page < 7; ++page) Key(Qt::Key_PageDown);
  list_.verticalScrollBar()->setValue(10);
  const std::string top = TopTitle();
  EXPECT_TRUE(CanWaitForRows(73));
  EXPECT_EQ(Title(2) + TopTitle() + Selected(), "Title 73" + top + "Title 1 ");
  EXPECT_TRUE(list_.isEnabled()) << "rows that come do not reach the end";
  service_.Serve(1, 60, 1, 2);
  service_.Serve(2, 60, 51, 53);
  Search();
  PressEnd();
  EXPECT_TRUE(CanWaitForRows(5));
  EXPECT_TRUE(list_.hasFocus());
}

TEST_F(WebSearchTest, WithoutAnAnswerThereAreNoRowsAndTheMainPage) {
  service_.Fail(1);
  ListPosts(3);
  Search();
  EXPECT_EQ(RowCount(), 0);
  EXPECT_EQ(frame_.shown.back(), "(main page)");
  EXPECT_EQ(frame_.questions, Strings{kTextDirectoryFailed});
  EXPECT_EQ(frame_.state.listMode, ListMode::WebDirectory);
}

TEST_F(WebSearchTest, ClosesTheListWhileItRunsAndARefreshDoesNotDisturbIt) {
  QCursor::setPos(pane_.mapToGlobal(QPoint(100, 100)));
  QApplication::processEvents();
  BeginEndlessOver(30);
  EXPECT_EQ(pane_.windowHandle()->cursor().shape(), Qt::WaitCursor);
  QTest::mouseClick(pane_.childAt(100, 100), Qt::LeftButton);
  for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Return, Qt::Key_N, Qt::Key_Delete, Qt::Key_End}) {
    Key(key);
  }
  pane_.GoToUnread(true);
  EXPECT_EQ(frame_.shown, Strings{"Post 30"});
  EXPECT_EQ(Selected(), "Post 30 ");
  EXPECT_EQ(frame_.state.unreadTotal, 10);
  pane_.resize(700, 300);
  EXPECT_EQ(pane_.childAt(690, 290), pane_.childAt(100, 100)) << "it stays closed as a whole";
  pane_.Refill(NumberedPosts(4));
  EXPECT_EQ(RowCount(), 4);
  EXPECT_FALSE(list_.isEnabled());
  service_.ServeTwoPages();
  WaitForEnd();
  EXPECT_EQ(RowCount(), 50);
  EXPECT_EQ(service_.Requests(1), 1);
  EXPECT_EQ(pane_.windowHandle()->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(WebSearchTest, EscapeGivesItUpWhereverTheKeyboardIsAndTheOneBeforeGoesOn) {
  service_.ServeTwoPages();
  Search();
  // As the browser's: two shortcuts for one key, and neither would be carried out.
  QShortcut other(Qt::Key_Escape, &pane_);
  const QSignalSpy others(&other, &QShortcut::activated);
  for (QWidget* const focus : {static_cast<QWidget*>(&list_), static_cast<QWidget*>(&word_)}) {
    focus->setFocus();
    word_.setText("another");
    button_.click();
    EXPECT_FALSE(list_.isEnabled());
    Key(Qt::Key_Escape);
    EXPECT_TRUE(list_.isEnabled());
    EXPECT_TRUE(focus->hasFocus()) << "it had the keyboard";
    EXPECT_EQ(RowCount(), 50);
    EXPECT_EQ(frame_.messages.back(), "");
  }
  EXPECT_EQ(others.count(), 0);
  Key(Qt::Key_Escape);
  EXPECT_EQ(others.count(), 1) << "nothing runs: the key has its other meanings again";
  list_.setFocus();
  PressEnd();
  EXPECT_TRUE(CanWaitForRows(73));
}

TEST_F(WebSearchTest, WhateverElseIsListedGivesItUp) {
  BeginEndlessOver(3);
  ListPosts(60, ListMode::Today);
  EXPECT_TRUE(list_.isEnabled());
  service_.ServeTwoPages();  // those who wait get it now
  PressEnd();
  EXPECT_TRUE(list_.isEnabled()) << "these are not the directory's rows";
  Search();  // behind which nothing of the one before can come
  EXPECT_EQ(RowCount(), 50);
  const std::string searching = Text(kTextDirectorySearching);
  EXPECT_EQ(frame_.messages, (Strings{searching, "", searching, ""}));
  ListPosts(60);
  PressEnd();
  EXPECT_TRUE(list_.isEnabled()) << "though the search has more";
  service_.Hang(1);
  for (int i = 0; i < 2; ++i) button_.click();
  service_.Serve(1, 2, 1, 2);
  WaitForEnd();
  EXPECT_EQ(RowCount(), 2);
  EXPECT_EQ(frame_.lists.size(), 5U) << "one answer to both";
}

TEST_F(WebSearchTest, APaneThatGoesDuringASearchIsNotTouched) {
  frame_.listPane = nullptr;
  auto pane = std::make_unique<CRSS_RightTopContainer>(frame_, nullptr);
  service_.Hang(1);
  pane->findChild<QLineEdit*>()->setText("word");
  pane->findChild<QAbstractButton*>()->click();
  EXPECT_FALSE(pane->findChild<CVxListCtrl*>()->isEnabled());
  pane.reset();
  service_.Serve(1, 2, 1, 2);
  QApplication::processEvents();
  EXPECT_EQ(frame_.lists.size(), 0U);
}

}  // namespace
}  // namespace feedloom
