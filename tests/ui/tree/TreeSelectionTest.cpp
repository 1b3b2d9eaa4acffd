// What clicks and keys select in the tree, and what is listed for it.
#include "ui/tree/LeftPaneFixture.h"

namespace feedloom {
namespace {

using TreeSelection = LeftPaneFixture;
using Strings = std::vector<std::string>;

TEST_F(TreeSelection, AClickListsTheChannelsPosts) {
  Open();
  Click("Daily(2)");
  ASSERT_EQ(frame.lists.size(), 1U);
  EXPECT_EQ(ListedTitles(), (Strings{"Post 2", "Post 1"}));
  for (const PostRow& post : frame.lists[0].posts) {
    EXPECT_EQ(post.ownerId, daily);
    EXPECT_EQ(post.ownerTitle, "Daily");
  }
  EXPECT_FALSE(frame.lists[0].areScrapPosts);
  EXPECT_EQ(frame.state.listMode, ListMode::Selection);
  EXPECT_EQ(pane->SelectedChannel(), daily);
}

TEST_F(TreeSelection, AClickOnAFolderListsThePostsOfItsChannels) {
  Open();
  Click("News(3)");
  ASSERT_EQ(frame.lists.size(), 1U);
  EXPECT_EQ(frame.lists[0].posts.size(), 3U);
  EXPECT_EQ(frame.lists[0].posts.front().ownerId, daily);
  EXPECT_EQ(frame.lists[0].posts.back().ownerId, weekly);
  EXPECT_EQ(pane->SelectedChannel(), std::nullopt);
}

TEST_F(TreeSelection, CabinetsListSavedPosts) {
  Open();
  for (const QString& label : {QString("Keep(1)"), CabinetTitle() + "(1)"}) {
    Click(label);
    EXPECT_EQ(ListedTitles(), Strings{"Saved"});
    EXPECT_TRUE(frame.lists.back().areScrapPosts);
    EXPECT_EQ(frame.lists.back().posts[0].ownerId, keep);
    EXPECT_EQ(frame.lists.back().posts[0].ownerTitle, "Keep");
    EXPECT_EQ(pane->SelectedChannel(), std::nullopt);
  }
  Click("Later");
  EXPECT_TRUE(frame.lists.back().posts.empty());
  EXPECT_EQ(frame.lists.size(), 3U);
}

TEST_F(TreeSelection, AnotherClickOnTheSelectedRowListsAgain) {
  Open();
  Click("Daily(2)");
  Click("Daily(2)");
  EXPECT_EQ(frame.lists.size(), 2U);
  Click("Daily(2)", Qt::LeftButton, Qt::ControlModifier);
  EXPECT_EQ(frame.lists.size(), 3U);
  EXPECT_EQ(SelectedLabel(), "Daily(2)");
}

TEST_F(TreeSelection, ADoubleClickListsOnce) {
  Open();
  const QPoint place = Tree().visualRect(Row("News(3)")).center();
  QTest::mouseClick(Tree().viewport(), Qt::LeftButton, {}, place);
  QTest::mouseDClick(Tree().viewport(), Qt::LeftButton, {}, place);
  EXPECT_EQ(frame.lists.size(), 1U);
  EXPECT_FALSE(Tree().isExpanded(Row("News(3)")));
}

TEST_F(TreeSelection, AFolderThatClosesTakesTheSelectionOfItsChannel) {
  Open();
  Click("Daily(2)");
  Tree().collapse(Row("News(3)"));
  EXPECT_EQ(SelectedLabel(), "News(3)");
  EXPECT_EQ(frame.lists.back().posts.size(), 3U);
  Click("Keep(1)");
  Tree().expand(Row("News(3)"));
  Tree().collapse(Row("News(3)"));
  EXPECT_EQ(SelectedLabel(), "Keep(1)");
}

TEST_F(TreeSelection, TheRightButtonSelectsAnotherRowAndLeavesTheSelectedOne) {
  Open();
  Click("Weekly(1)", Qt::RightButton);
  EXPECT_EQ(pane->SelectedChannel(), weekly);
  EXPECT_EQ(frame.lists.size(), 1U);
  Click("Weekly(1)", Qt::RightButton);
  EXPECT_EQ(frame.lists.size(), 1U);
}

TEST_F(TreeSelection, TheExpandMarkOnlyTogglesItsFolder) {
  Open();
  const QRect header = Tree().visualRect(Row("News(3)"));
  const QPoint mark(header.left() / 2, header.center().y());
  QTest::mouseClick(Tree().viewport(), Qt::LeftButton, {}, mark);
  EXPECT_FALSE(Labels().contains("Daily(2)"));
  QTest::mouseClick(Tree().viewport(), Qt::LeftButton, {}, mark);
  EXPECT_TRUE(Labels().contains("Daily(2)"));
  EXPECT_TRUE(frame.lists.empty());
}

TEST_F(TreeSelection, AClickBesideTheRowsSelectsNothing) {
  Open();
  QTest::mouseClick(Tree().viewport(), Qt::LeftButton, {}, QPoint(100, 330));
  EXPECT_TRUE(frame.lists.empty());
  EXPECT_FALSE(Tree().SelectedRow().isValid());
}

TEST_F(TreeSelection, ADragKeepsTheRowOnWhichItBegan) {
  Open();
  const QPoint from = Tree().visualRect(Row("News(3)")).center();
  const QPoint to = Tree().visualRect(Row("Weekly(1)")).center();
  QTest::mousePress(Tree().viewport(), Qt::LeftButton, {}, from);
  MovePointer(to, Qt::LeftButton);
  QTest::mouseRelease(Tree().viewport(), Qt::LeftButton, {}, to);
  EXPECT_EQ(SelectedLabel(), "News(3)");
  EXPECT_EQ(Tree().currentIndex(), Tree().SelectedRow());
  EXPECT_EQ(frame.lists.size(), 1U);
}

TEST_F(TreeSelection, ThePointerIsAHandOverRowsOnly) {
  Open();
  MovePointer(Tree().visualRect(Row("Daily(2)")).center(), Qt::NoButton);
  EXPECT_EQ(Tree().viewport()->cursor().shape(), Qt::BitmapCursor);
  MovePointer(QPoint(100, 330), Qt::NoButton);
  EXPECT_EQ(Tree().viewport()->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(TreeSelection, ABusyPaneLeavesTheCursorToItsFrame) {
  Open();
  pane->setCursor(Qt::WaitCursor);
  const QPoint overRow = Tree().visualRect(Row("Daily(2)")).center();
  MovePointer(overRow, Qt::NoButton);
  pane->SetBusy(true);
  EXPECT_EQ(Tree().viewport()->cursor().shape(), Qt::WaitCursor);
  MovePointer(overRow, Qt::NoButton);
  EXPECT_EQ(Tree().viewport()->cursor().shape(), Qt::WaitCursor);
  pane->SetBusy(false);
  MovePointer(overRow, Qt::NoButton);
  EXPECT_EQ(Tree().viewport()->cursor().shape(), Qt::BitmapCursor);
}

TEST_F(TreeSelection, KeysSelectAndListOnceEach) {
  Open();
  std::size_t lists = 0;
  const auto selects = [&](Qt::Key key, const QString& label) {
    Press(key);
    EXPECT_EQ(SelectedLabel(), label);
    EXPECT_EQ(frame.lists.size(), ++lists) << label.toStdString();
  };
  selects(Qt::Key_Home, "News(3)");
  selects(Qt::Key_Down, "Daily(2)");
  selects(Qt::Key_Down, "Weekly(1)");
  selects(Qt::Key_End, "Later");
  selects(Qt::Key_Up, "Keep(1)");
  selects(Qt::Key_Left, CabinetTitle() + "(1)");
  selects(Qt::Key_Home, "News(3)");
  Press(Qt::Key_Home);
  EXPECT_EQ(frame.lists.size(), lists);
}

TEST_F(TreeSelection, TheFirstDownOrEndStartsAtTheRightRow) {
  Open();
  Press(Qt::Key_Down);
  EXPECT_EQ(SelectedLabel(), "News(3)");
  pane->LoadTree();
  Press(Qt::Key_End);
  EXPECT_EQ(SelectedLabel(), "Later");
}

TEST_F(TreeSelection, EnterListsTheSelectedRowAgain) {
  Open();
  Press(Qt::Key_Return);
  EXPECT_TRUE(frame.lists.empty());
  Click("Daily(2)");
  Press(Qt::Key_Return);
  EXPECT_EQ(frame.lists.size(), 2U);
}

TEST_F(TreeSelection, NAndPAskForUnreadPostsWhateverTheRowsAreCalled) {
  AddFolder(frame.GetStore(), "Nature", 3);
  Open();
  Click("Daily(2)");
  Press(Qt::Key_N);
  Press(Qt::Key_P);
  EXPECT_EQ(frame.unreadPostsAsked, (std::vector<bool>{true, false}));
  EXPECT_EQ(SelectedLabel(), "Daily(2)");
  QTest::keyClick(&Tree(), Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(frame.searchFocuses, 1);
}

TEST_F(TreeSelection, GoesToTheNextOrPreviousRowWithUnreadPosts) {
  Open();
  Tree().collapse(Row("News(3)"));
  pane->GoToUnreadRow(true);
  EXPECT_EQ(SelectedLabel(), "Daily(2)");
  EXPECT_TRUE(Tree().isExpanded(Row("News(3)")));
  EXPECT_EQ(frame.firstShowns.back(), FirstShown::FirstUnread);
  pane->GoToUnreadRow(true);
  pane->GoToUnreadRow(true);
  EXPECT_EQ(SelectedLabel(), "Keep(1)");
  pane->GoToUnreadRow(true);
  EXPECT_EQ(frame.lists.size(), 3U);
  pane->GoToUnreadRow(false);
  EXPECT_EQ(SelectedLabel(), "Weekly(1)");
  EXPECT_EQ(frame.firstShowns.back(), FirstShown::LastUnread);
  Click("News(3)");
  EXPECT_EQ(frame.firstShowns.back(), FirstShown::First);
}

TEST_F(TreeSelection, SelectingAChannelTurnsItsNewMarkOff) {
  Open();
  const auto isNew = [&](const QString& label) {
    return Row(label).data(GroupTreeModel::IsNewRole).toBool();
  };
  pane->SetChannelNew(daily, true);
  pane->SetChannelNew(weekly, true);
  EXPECT_TRUE(isNew("Daily(2)"));
  Click("News(3)");
  EXPECT_TRUE(isNew("Daily(2)"));
  Click("Daily(2)");
  EXPECT_FALSE(isNew("Daily(2)"));
  EXPECT_TRUE(isNew("Weekly(1)"));
}

}  // namespace
}  // namespace feedloom
