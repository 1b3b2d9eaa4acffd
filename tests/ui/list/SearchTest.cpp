// The search box: the store's posts, the web directory's page by page, and the list meanwhile.
#include <QShortcut>

#include "kit/DirectoryService.h"
#include "look/SkinText.h"
#include "ui/list/ListPaneFixture.h"

namespace feedloom {

struct SearchTest : PostListPane {
  SearchTest() {
    frame_.directoryService = service_.Address();
    word_.setText("word");
    pane_.Fill(NumberedPosts(60));
  }
  bool GetsRows(int rows) {
    return QTest::qWaitFor([&] { return list_.model()->rowCount() == rows && list_.isEnabled(); });
  }
  void PressEnd() {
    Key(Qt::Key_End);
    QApplication::processEvents();  // the request is made behind the key
  }

  DirectoryService service_;
};

TEST_F(SearchTest, ButtonAndEnterListTheStoresPostsWithTheWordAndCountThem) {
  ChannelPosts(12);
  const QImage before = bar_.grab({312, 13, 90, 14}).toImage();
  QTest::keyClick(bar_.findChild<QComboBox*>(), Qt::Key_Down);
  word_.setText("똠방각하");
  EXPECT_EQ(bar_.Word(), Korean("똠방각하"));
  bar_.FocusWord();
  QTest::keyClicks(&word_, "post 1");  // in place of the old word
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) Key(key);
  EXPECT_EQ(frame_.lists.size(), 2U);
  EXPECT_EQ(Rows(), ">-Post 12 Post 11 Post 10 Post 1 ");
  EXPECT_EQ(bar_.accessibleDescription(), "검색결과 : 4건");
  EXPECT_EQ(word_.accessibleDescription(), bar_.accessibleDescription());
  EXPECT_NE(bar_.grab({312, 13, 90, 14}).toImage(), before) << "who sees reads it there";
  word_.clear();
  button_.click();
  EXPECT_EQ(frame_.questions, Strings{kTextSearchEmpty});
}

TEST_F(SearchTest, TheWebsFirstPageIsListedAndFurtherOnesAtTheEndOfTheList) {
  service_.Fail(1);
  button_.click();
  EXPECT_TRUE(GetsRows(0));
  EXPECT_EQ(frame_.shown, Strings{"(main page)"});
  EXPECT_EQ(frame_.questions, Strings{kTextDirectoryFailed});
  service_.ServeTwoPages();
  service_.Fail(2);
  button_.click();
  EXPECT_TRUE(GetsRows(50));
  PressEnd();
  EXPECT_TRUE(GetsRows(50));
  EXPECT_EQ(frame_.messages.back(), frame_.GetSkin().GetText(kSectionTexts, kTextDirectoryFailed));
  service_.ServeTwoPages();
  list_.header()->setSortIndicator(kTitleColumn, Qt::DescendingOrder);
  PressEnd();
  list_.verticalScrollBar()->setValue(10);
  const std::string top = OnLine(0);
  EXPECT_TRUE(GetsRows(73));
  EXPECT_EQ(Title(2) + OnLine(0), "Title 73 " + top);
  EXPECT_EQ(bar_.accessibleDescription(), "검색결과 : 73건");
  button_.click();
  EXPECT_TRUE(GetsRows(50));
  frame_.ListPosts(ListMode::Selection, NumberedPosts(60), FirstPost::First);
  PressEnd();
  EXPECT_TRUE(list_.isEnabled()) << "these are not the directory's rows";
}

TEST_F(SearchTest, TheListIsClosedUntilTheAnswerOrEscapeOrAnotherList) {
  service_.Hang(1);
  const QShortcut other(Qt::Key_Escape, &pane_);  // as the browser's
  for (QWidget* const focus : {static_cast<QWidget*>(&list_), static_cast<QWidget*>(&word_)}) {
    focus->setFocus();
    button_.click();
    EXPECT_FALSE(list_.isEnabled());
    Key(Qt::Key_Escape);
    EXPECT_TRUE(list_.isEnabled() && focus->hasFocus());
    EXPECT_EQ(frame_.messages.back(), "");
  }
  button_.click();
  pane_.GoToUnread(true);
  pane_.Refill(NumberedPosts(4));
  EXPECT_FALSE(list_.isEnabled()) << "a refresh does not disturb it";
  pane_.Fill(NumberedPosts(60));
  EXPECT_TRUE(list_.isEnabled());
  EXPECT_EQ(frame_.shown, Strings());
  pane_.GoToUnread(true);
  EXPECT_EQ(frame_.shown, Strings{"Post 60"});
}

TEST_F(SearchTest, ASearchWithoutAHitSaysSoAndANarrowPaneShowsACountAsAWholeOrNotAtAll) {
  bar_.SetResultCount(0);
  EXPECT_EQ(bar_.accessibleDescription(), "검색 결과가 없습니다.");
  const auto look = [&](int count, const QRect& area) {
    bar_.SetResultCount(count);
    return bar_.grab(area).toImage();
  };
  for (const auto& [width, isShown] : {std::pair(560, true), {400, true}, {220, false}}) {
    pane_.resize(width, 240);
    EXPECT_EQ(look(1234, bar_.rect()) != look(-1, bar_.rect()), isShown) << width;
    const QRect edge(bar_.width() - 8, 0, 8, bar_.height());
    EXPECT_EQ(look(1234, edge), look(-1, edge)) << width << ": it ends before the edge";
  }
}

TEST_F(SearchTest, WithoutAWebDirectoryThePostsAreSearchedAndTheWebSaysWhyItIsNot) {
  const ShippedSkin bare("KOR", kLightSkin, "");
  frame_.shownSkin = &bare.Get();
  CRSS_RightTopContainer pane(frame_, frame_, frame_, nullptr);
  auto& scope = *pane.findChild<QComboBox*>();
  EXPECT_EQ(scope.currentIndex(), 1);
  QTest::keyClick(&scope, Qt::Key_Up);
  EXPECT_EQ(scope.currentIndex(), 1);
  EXPECT_EQ(scope.itemData(0, Qt::ToolTipRole), SkinText(bare.Get(), kTextDirectoryMissing));
}

TEST_F(SearchTest, InANarrowPaneTheWordGetsLessRoomAndThenTheScope) {
  auto& scope = *bar_.findChild<QComboBox*>();
  for (const auto& [width, rooms] : {std::pair(560, std::vector{84, 172, 272}),
                                     {340, {84, 160, 260}},
                                     {190, {54, 40, 110}},
                                     {62, {40, 40, 96}}}) {
    pane_.resize(width, 240);
    EXPECT_EQ((std::vector{scope.width(), word_.width(), button_.x()}), rooms);
  }
}

TEST_F(SearchTest, APaneThatGoesWhileTheUserIsAskedOrASearchRunsIsNotTouched) {
  std::unique_ptr<CRSS_RightTopContainer> pane;
  frame_.whileAsking = [&] { pane.reset(); };
  frame_.nextAnswer = MsgBoxAnswer::Declined;
  service_.Hang(1);
  for (const QString word : {"", "word"}) {
    pane = std::make_unique<CRSS_RightTopContainer>(frame_, frame_, frame_, nullptr);
    pane->findChild<QLineEdit*>()->setText(word);
    pane->findChild<QAbstractButton*>()->click();
    EXPECT_EQ(pane == nullptr, word.isEmpty());
  }
  pane->Fill(NumberedPosts(3));
  pane->findChild<CVxListCtrl*>()->selectAll();
  pane->Run(kCommandDelete);
  EXPECT_EQ(pane, nullptr);
}

}  // namespace feedloom
