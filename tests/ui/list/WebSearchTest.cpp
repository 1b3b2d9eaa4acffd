// The web directory in the list: pages, failures, and the list while a search runs.

#include <QAbstractButton>
#include <QCursor>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QShortcut>
#include <QWindow>

#include "skin/Keys.h"
#include "ui/list/CRSS_RightTopToolBarWnd.h"
#include "ui/list/DirectoryService.h"
#include "ui/list/ListPaneFixture.h"

namespace feedloom {
namespace {

class WebSearchInTheList : public PostListPane {
 protected:
  WebSearchInTheList() {
    frame_.listPane = &pane_;
    frame_.directoryService = service_.Address();
  }

  void Begin() {
    word_.setText("word");
    pane_.findChild<QAbstractButton*>()->click();
  }
  void Search() {
    Begin();
    WaitForEnd();
  }
  void WaitForEnd() {
    EXPECT_TRUE(QTest::qWaitFor([&] { return list_.isEnabled(); }));
  }
  bool CanWaitForRows(int rows) {
    return QTest::qWaitFor([&] { return list_.model()->rowCount() == rows; });
  }
  void ListPosts(int newest, ListMode mode = ListMode::Selection) {
    frame_.ListPosts(mode, NumberedPosts(newest), FirstShown::First);
  }
  // A search without an end, over a list with so many other posts.
  void BeginEndlessOver(int rows) {
    ListPosts(rows);
    service_.Hang(1);
    Begin();
    EXPECT_TRUE(QTest::qWaitFor([&] { return service_.Requests(1) == 1; }));
  }
  void PressEnd() {
    Key(Qt::Key_End);
    QApplication::processEvents();  // the request is made behind the key
  }

  QPoint Place(int row) const {
    return list_.viewport()->mapTo(&pane_, list_.visualRect(Index(row)).center());
  }
  // What is under the mouse there, as the user sees and hits it.
  QWidget* Under(const QPoint& point) const { return pane_.childAt(point); }

  int Rows() const { return list_.model()->rowCount(); }
  std::string Count() const {
    return pane_.findChild<CRSS_RightTopToolBarWnd*>()->accessibleDescription().toStdString();
  }
  std::string Text(const char* key) const { return frame_.GetSkin().GetText(kSectionTexts, key); }

  DirectoryService service_;
  QLineEdit& word_ = *pane_.findChild<QLineEdit*>();
};

TEST_F(WebSearchInTheList, TakesTheFirstPageAndFurtherOnesAtTheEndOfTheList) {
  service_.ServeTwoPages();
  ListPosts(3);
  Search();
  EXPECT_EQ(frame_.state.listMode, ListMode::WebDirectory);
  EXPECT_EQ(Rows(), 50);
  EXPECT_EQ(Count(), "검색결과 : 50건");
  EXPECT_EQ(frame_.shown, (Strings{"Post 3", "Title 1"}));
  EXPECT_EQ(frame_.messages, (Strings{Text(kTextDirectorySearching), ""}));

  list_.verticalScrollBar()->triggerAction(QAbstractSlider::SliderToMaximum);
  const int place = list_.verticalScrollBar()->value();
  EXPECT_TRUE(CanWaitForRows(73));
  EXPECT_EQ(Title(72), "Title 73");
  EXPECT_EQ(Count(), "검색결과 : 73건");
  EXPECT_EQ(list_.verticalScrollBar()->value(), place);
  EXPECT_EQ(list_.SelectedRows(), std::vector{0});
  EXPECT_EQ(frame_.shown.size(), 2u);

  PressEnd();
  EXPECT_TRUE(list_.isEnabled()) << "there is no third page";
  EXPECT_EQ(frame_.lists.size(), 2u);
}

TEST_F(WebSearchInTheList, KeepsPlaceAndSelectionOfASortedListWhenAPageComes) {
  service_.ServeTwoPages();
  Search();
  list_.header()->setSortIndicator(kTitleColumn, Qt::DescendingOrder);
  Key(Qt::Key_Home);
  for (int page = 0; page < 7; ++page) Key(Qt::Key_PageDown);
  list_.verticalScrollBar()->setValue(10);
  const std::string top = TopTitle();
  EXPECT_TRUE(CanWaitForRows(73));
  EXPECT_EQ(Title(2), "Title 73");
  EXPECT_EQ(TopTitle(), top);
  EXPECT_EQ(SelectedTitles(), Strings{"Title 1"}) << "to which the key has led";
  EXPECT_TRUE(list_.isEnabled()) << "rows that come do not reach the end";
}

TEST_F(WebSearchInTheList, TheKeyEndAsksAlsoWhenAllRowsFit) {
  service_.Serve(1, 60, 1, 2);
  service_.Serve(2, 60, 51, 53);
  Search();
  PressEnd();
  EXPECT_TRUE(CanWaitForRows(5));
  EXPECT_TRUE(list_.hasFocus());
}

TEST_F(WebSearchInTheList, WithoutAnAnswerThereAreNoRowsAndTheMainPage) {
  service_.Fail(1);
  ListPosts(3);
  Search();
  EXPECT_EQ(Rows(), 0);
  EXPECT_EQ(Count(), "");
  EXPECT_EQ(frame_.shown.back(), "(main page)");
  EXPECT_EQ(frame_.questions, Strings{kTextDirectoryFailed});
  EXPECT_EQ(frame_.state.listMode, ListMode::WebDirectory);
}

TEST_F(WebSearchInTheList, APageThatDidNotComeIsAskedForAgain) {
  service_.ServeTwoPages();
  service_.Fail(2);
  Search();
  PressEnd();
  WaitForEnd();
  EXPECT_EQ(frame_.messages.back(), Text(kTextDirectoryFailed));
  EXPECT_EQ(Rows(), 50);
  service_.ServeTwoPages();
  PressEnd();
  EXPECT_TRUE(CanWaitForRows(73));
}

TEST_F(WebSearchInTheList, IsClosedToInputWhileItRuns) {
  const QPoint place(100, 100);
  QCursor::setPos(pane_.mapToGlobal(place));
  QApplication::processEvents();
  BeginEndlessOver(30);
  EXPECT_EQ(pane_.windowHandle()->cursor().shape(), Qt::WaitCursor);
  QTest::mouseClick(Under(place), Qt::LeftButton);
  for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Return, Qt::Key_N, Qt::Key_Delete, Qt::Key_End}) {
    Key(key);
  }
  pane_.GoToUnread(true);
  EXPECT_EQ(frame_.shown, Strings{"Post 30"});
  EXPECT_EQ(list_.SelectedRows(), std::vector{0});
  EXPECT_EQ(frame_.state.unreadTotal, 10);
  EXPECT_EQ(service_.Requests(1), 1);
  pane_.resize(700, 300);
  EXPECT_EQ(Under({690, 290}), Under(place)) << "it stays closed as a whole";
  Key(Qt::Key_Escape);
  EXPECT_EQ(pane_.windowHandle()->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(WebSearchInTheList, EscapeGivesItUpWhereverTheKeyboardIs) {
  BeginEndlessOver(3);
  // As the browser's: two shortcuts for one key, and neither would be carried out.
  QShortcut other(Qt::Key_Escape, &pane_);
  bool isOtherUsed = false;
  QObject::connect(&other, &QShortcut::activated, &pane_, [&] { isOtherUsed = true; });
  EXPECT_FALSE(list_.isEnabled());
  Key(Qt::Key_Escape);
  EXPECT_TRUE(list_.isEnabled());
  EXPECT_TRUE(list_.hasFocus()) << "it had the keyboard";
  EXPECT_EQ(Under(Place(1)), list_.viewport());
  EXPECT_EQ(Rows(), 3);
  EXPECT_EQ(frame_.messages.back(), "");

  word_.setFocus();
  Begin();
  Key(Qt::Key_Escape);
  EXPECT_TRUE(list_.isEnabled());
  EXPECT_TRUE(word_.hasFocus());
  EXPECT_FALSE(isOtherUsed);
  Key(Qt::Key_Escape);
  EXPECT_TRUE(isOtherUsed) << "nothing runs: the key has its other meanings again";
}

TEST_F(WebSearchInTheList, WhateverElseIsListedGivesItUp) {
  BeginEndlessOver(3);
  ListPosts(60, ListMode::Today);
  EXPECT_TRUE(list_.isEnabled());
  service_.ServeTwoPages();  // those who wait get it now
  PressEnd();
  EXPECT_TRUE(list_.isEnabled()) << "these are not the directory's rows";
  EXPECT_EQ(Rows(), 60);

  Search();  // behind which nothing of the one before can come
  const std::string searching = Text(kTextDirectorySearching);
  EXPECT_EQ(frame_.messages, (Strings{searching, "", searching, ""}));
  ListPosts(60);
  PressEnd();
  EXPECT_TRUE(list_.isEnabled()) << "though the search has more";
}

TEST_F(WebSearchInTheList, ARefreshOfTheListedPostsLeavesItAlone) {
  BeginEndlessOver(3);
  pane_.Refill(NumberedPosts(4));
  EXPECT_EQ(Rows(), 4);
  EXPECT_FALSE(list_.isEnabled());
  service_.ServeTwoPages();
  WaitForEnd();
  EXPECT_EQ(Rows(), 50);
}

TEST_F(WebSearchInTheList, OneThatIsGivenUpLeavesTheOneBeforeAsItWas) {
  service_.ServeTwoPages();
  Search();
  word_.setText("another");
  pane_.findChild<QAbstractButton*>()->click();
  Key(Qt::Key_Escape);
  WaitForEnd();
  PressEnd();
  EXPECT_TRUE(CanWaitForRows(73));
}

TEST_F(WebSearchInTheList, ANewSearchTakesThePlaceOfTheOneThatRuns) {
  BeginEndlessOver(3);
  service_.Serve(1, 2, 1, 2);
  Begin();
  WaitForEnd();
  EXPECT_EQ(Rows(), 2);
  EXPECT_EQ(frame_.lists.size(), 2u) << "one answer";
}

TEST_F(WebSearchInTheList, APaneThatGoesDuringASearchIsNotTouched) {
  auto pane = std::make_unique<CRSS_RightTopContainer>(frame_, nullptr);
  service_.Hang(1);
  pane->findChild<QLineEdit*>()->setText("word");
  pane->findChild<QAbstractButton*>()->click();
  EXPECT_FALSE(pane->findChild<CVxListCtrl*>()->isEnabled());
  pane.reset();
  service_.Serve(1, 2, 1, 2);
  QApplication::processEvents();
  EXPECT_EQ(frame_.lists.size(), 0u);
}

}  // namespace
}  // namespace feedloom
