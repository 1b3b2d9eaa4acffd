// The web directory in the list: pages, failures, and the list while a search runs.
#include <QCursor>
#include <QShortcut>
#include <QWindow>

#include "ui/list/DirectoryService.h"
#include "ui/list/ListPaneFixture.h"

namespace feedloom {
namespace {

class WebSearchTest : public PostListPane {
 protected:
  WebSearchTest() {
    frame_.pane = &pane_;
    frame_.directoryService = service_.Address();
    word_.setText("word");
  }
  void ListPosts(int newest, ListMode mode = ListMode::Selection) {
    frame_.ListPosts(mode, NumberedPosts(newest), FirstShown::First);
  }
  void Search(bool waits = true) {
    button_.click();
    EXPECT_TRUE(!waits || QTest::qWaitFor([&] { return list_.isEnabled(); }));
  }
  void PressEnd() {
    Key(Qt::Key_End);
    QApplication::processEvents();  // the request is made behind the key
  }
  bool GetsRows(int rows) {
    return QTest::qWaitFor([&] { return RowCount() == rows && list_.isEnabled(); });
  }
  std::string Text(const char* key) const { return frame_.GetSkin().GetText(kSectionTexts, key); }

  DirectoryService service_;
};

TEST_F(WebSearchTest, TakesTheFirstPageAndFurtherOnesAtTheEndOfTheList) {
  service_.ServeTwoPages();
  service_.Fail(2);
  ListPosts(3);
  Search();
  EXPECT_EQ(frame_.state.listMode, ListMode::WebDirectory);
  EXPECT_EQ(RowCount(), 50);
  EXPECT_EQ(bar_.accessibleDescription(), "검색결과 : 50건");
  EXPECT_EQ(frame_.messages, (Strings{Text(kTextDirectorySearching), ""}));
  PressEnd();
  EXPECT_TRUE(GetsRows(50));
  EXPECT_EQ(frame_.messages.back(), Text(kTextDirectoryFailed));
  service_.ServeTwoPages();
  list_.header()->setSortIndicator(kTitleColumn, Qt::DescendingOrder);
  list_.verticalScrollBar()->triggerAction(QAbstractSlider::SliderToMaximum);
  list_.verticalScrollBar()->setValue(10);
  const std::string top = TopTitle();
  EXPECT_TRUE(GetsRows(73));
  EXPECT_EQ(Title(2) + TopTitle() + Selected(), "Title 73" + top + "Title 50 ");
  EXPECT_EQ(bar_.accessibleDescription(), "검색결과 : 73건");
  PressEnd();
  EXPECT_TRUE(list_.isEnabled()) << "there is no third page";
  EXPECT_EQ(frame_.lists.size(), 2U);
  EXPECT_EQ(frame_.shown, (Strings{"Post 3", "Title 1"}));
  service_.Serve(1, 60, 1, 2);
  service_.Serve(2, 60, 51, 53);
  Search();
  PressEnd();
  EXPECT_TRUE(GetsRows(5)) << "End asks also when all rows fit";
}

TEST_F(WebSearchTest, WithoutAnAnswerThereAreNoRowsAndTheMainPage) {
  service_.Fail(1);
  ListPosts(3);
  Search();
  EXPECT_EQ(RowCount(), 0);
  EXPECT_EQ(frame_.shown.back(), "(main page)");
  EXPECT_EQ(frame_.questions, Strings{kTextDirectoryFailed});
}

TEST_F(WebSearchTest, ClosesTheListWhileItRunsAndARefreshDoesNotDisturbIt) {
  QCursor::setPos(pane_.mapToGlobal(QPoint(100, 100)));
  QApplication::processEvents();
  ListPosts(30);
  service_.Hang(1);
  Search(false);
  EXPECT_EQ(pane_.windowHandle()->cursor().shape(), Qt::WaitCursor);
  QTest::mouseClick(pane_.childAt(100, 100), Qt::LeftButton);
  for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Return, Qt::Key_N, Qt::Key_Delete, Qt::Key_End}) {
    Key(key);
  }
  pane_.GoToUnread(true);
  EXPECT_EQ(frame_.shown, Strings{"Post 30"});
  EXPECT_EQ(Selected(), "Post 30 ");
  pane_.resize(700, 300);
  EXPECT_EQ(pane_.childAt(690, 290), pane_.childAt(100, 100)) << "it is closed as a whole";
  pane_.Refill(NumberedPosts(4));
  EXPECT_TRUE(RowCount() == 4 && !list_.isEnabled());
  service_.ServeTwoPages();
  EXPECT_TRUE(GetsRows(50));
  EXPECT_EQ(service_.Requests(1), 1);
  EXPECT_EQ(pane_.windowHandle()->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(WebSearchTest, EscapeCancelsItWhereverTheKeyboardIs) {
  service_.Hang(1);
  // As the browser's: two shortcuts for one key, and neither would be carried out.
  QShortcut other(Qt::Key_Escape, &pane_);
  const QSignalSpy others(&other, &QShortcut::activated);
  ListPosts(3);
  for (QWidget* const focus : {static_cast<QWidget*>(&list_), static_cast<QWidget*>(&word_)}) {
    focus->setFocus();
    Search(false);
    EXPECT_FALSE(list_.isEnabled());
    Key(Qt::Key_Escape);
    EXPECT_TRUE(list_.isEnabled() && focus->hasFocus());
    EXPECT_EQ(frame_.messages.back() + Rows(), ">(Post 3) Post 2 Post 1 ");
  }
  EXPECT_EQ(others.count(), 0);
  Key(Qt::Key_Escape);
  EXPECT_EQ(others.count(), 1) << "nothing runs: the key has its other meanings again";
}

TEST_F(WebSearchTest, WhateverElseIsListedCancelsIt) {
  service_.Hang(1);
  Search(false);
  ListPosts(60, ListMode::Today);
  EXPECT_TRUE(list_.isEnabled());
  service_.ServeTwoPages();  // who waits gets it now
  PressEnd();
  EXPECT_TRUE(list_.isEnabled()) << "these are not the directory's rows";
  Search();
  EXPECT_EQ(frame_.lists.size(), 2U);
  ListPosts(60);
  PressEnd();
  EXPECT_TRUE(list_.isEnabled()) << "though the search has more";
}

TEST_F(WebSearchTest, APaneThatGoesDuringASearchIsNotTouched) {
  frame_.pane = nullptr;
  auto pane = std::make_unique<CRSS_RightTopContainer>(frame_, nullptr);
  service_.Hang(1);
  pane->findChild<QLineEdit*>()->setText("word");
  pane->findChild<QAbstractButton*>()->click();
  pane.reset();
  service_.Serve(1, 2, 1, 2);
  QApplication::processEvents();
  EXPECT_EQ(frame_.lists.size(), 0U);
}

}  // namespace
}  // namespace feedloom
