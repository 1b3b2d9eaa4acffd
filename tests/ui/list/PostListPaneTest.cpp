// Rows on the screen: what clicks, keys and the menu do to the store, the rows and the frame.
#include "look/DialogAnswers.h"
#include "look/SkinPalette.h"
#include "skin/Colors.h"
#include "store/Cabinets.h"
#include "ui/SavedPosts.h"
#include "ui/list/ListPaneFixture.h"
#include "ui/list/TwoLineDelegate.h"

namespace feedloom {

struct PostListPaneTest : PostListPane {
  using PostListPane::PostListPane;
  void ListAndSelect(PostList list, const std::vector<int>& rows) {
    pane_.Fill(std::move(list));
    for (const int row : rows)
      list_.selectionModel()->setCurrentIndex(
          Index(row), QItemSelectionModel::Select | QItemSelectionModel::Rows);
  }
  std::unique_ptr<QMenu> OpenMenu(QPoint at = {0, 500}) {
    QTest::mouseClick(list_.viewport(), Qt::RightButton, {}, at);
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, QPoint(60, 70));
    QApplication::sendEvent(list_.viewport(), &event);
    return std::unique_ptr<QMenu>(pane_.findChild<QMenu*>());
  }
  void Choose(Command command, QPoint at = {0, 500}) {
    const auto menu = OpenMenu(at);
    for (QAction* const item : menu->actions())
      if (item->data().toInt() == command) item->trigger();
    QApplication::processEvents();  // the command comes when the menu has closed
  }
  std::string Stored(const std::string& what) const {
    return frame_.db.Value("select group_concat(" + what);
  }
};

TEST_F(PostListPaneTest, TheMenuOffersWhatCanBeDoneWithTheSelectedRows) {
  EXPECT_EQ(OpenMenu(), nullptr) << "there are no rows";
  using enum ListMode;
  // Initials: Read, Unread, Delete, All, Scrap; grey ones in parentheses.
  const std::tuple<ListMode, std::vector<int>, const char*> cases[] = {
      {Selection, {0}, "RDAS"},     {Selection, {}, "A"},   {Selection, {1}, "UDAS"},
      {Selection, {0, 1}, "RUDAS"}, {Today, {1}, "UD(A)S"}, {WebDirectory, {0}, "S"}};
  for (const auto& [mode, rows, items] : cases) {
    frame_.state.listMode = mode;
    PostList list = NumberedPosts(2);
    list.posts[1].readStatus = 1;
    ListAndSelect(std::move(list), rows);
    const auto menu = OpenMenu();
    std::string shown;
    for (const QAction* const item : menu->actions()) {
      const std::string initial(1, "RUDA???S"[item->data().toInt() - kCommandMarkRead]);
      shown += item->isEnabled() ? initial : "(" + initial + ")";
    }
    EXPECT_EQ(shown, items);
    EXPECT_EQ(menu->pos(), QPoint(60, 70));
  }
}

TEST_F(PostListPaneTest, MarkingAndDeletingChangeTheSelectedPostsAndRecountOnce) {
  const std::string unread = "post_id) from TB_POST where post_readStatus = 0";
  ListAndSelect(ChannelPosts(6), {1, 3});
  frame_.db.AddChannelWithPosts(2, "Other", 1);
  Choose(kCommandMarkRead);
  EXPECT_EQ(Stored(unread) + Rows(), "1,2,4,6,7Post 6 >-Post 5 Post 4 >-Post 3 Post 2 Post 1 ");
  Choose(kCommandMarkUnread);
  EXPECT_EQ(Rows(), "Post 6 >Post 5 Post 4 >Post 3 Post 2 Post 1 ");
  Choose(kCommandDelete);  // shows the post that takes the first one's place
  EXPECT_EQ(Stored(unread) + Rows(), "1,2,6,7Post 6 >-Post 4 Post 2 Post 1 ");
  Press(3);
  Choose(kCommandDelete);
  EXPECT_EQ(Rows(), "Post 6 -Post 4 >-Post 2 ") << "the last one that is left";
  Choose(kCommandDeleteAll);
  EXPECT_EQ(Stored(unread) + frame_.shown.back(), "7(main page)") << "that of the other channel";
  EXPECT_EQ(frame_.questions, (Strings{kTextDeletePosts, kTextDeletePosts, kTextDeleteAllPosts}));
  PostList saved = NumberedPosts(2);
  saved.areScrapPosts = true;
  for (int i = 0; i < 2; ++i) InsertScrapPost(frame_.GetStore(), 1, "", "", "", "");
  pane_.Fill(std::move(saved));
  Press(0);
  EXPECT_EQ(Stored("scrap_post_id) from TB_SCRAP_POST where scrap_post_readStatus"), "2");
  Choose(kCommandMarkUnread);
  EXPECT_EQ(Stored("scrap_post_id) from TB_SCRAP_POST where scrap_post_readStatus"), "(null)");
  Choose(kCommandDelete);
  EXPECT_EQ(Stored("scrap_post_id) from TB_SCRAP_POST"), "1");
  EXPECT_EQ(frame_.recounts, (std::vector{false, false, false, false, false, true, true}));
}

TEST_F(PostListPaneTest, NothingIsDeletedWithoutConsentOrAStoreNorWhatCameDuringTheQuestion) {
  pane_.Fill(ChannelPosts(2));
  frame_.whileAsking = [&] { pane_.Refill(NumberedPosts(3)); };
  Choose(kCommandDeleteAll);
  EXPECT_EQ(Rows(), ">-Post 3 ");
  frame_.nextAnswer = MsgBoxAnswer::Declined;
  frame_.whileAsking = nullptr;
  Choose(kCommandDelete);
  frame_.nextAnswer = MsgBoxAnswer::Consented;
  frame_.db.Sql("alter table TB_POST rename to TB_GONE");
  for (const Command command : {kCommandDelete, kCommandMarkUnread}) Choose(command);
  frame_.state.listMode = ListMode::WebDirectory;
  Key(Qt::Key_Delete);  // asks nothing
  Key(Qt::Key_M);
  frame_.state.listMode = ListMode::Selection;
  list_.clearSelection();
  for (const Command command : {kCommandToggleRead, kCommandScrap}) pane_.Run(command);
  list_.selectAll();
  const auto text = [this](const char* key) {
    return frame_.GetSkin().GetText(kSectionTexts, key);
  };
  EXPECT_EQ(frame_.messages, (Strings{text(kTextNotStored), text(kTextNotStored),
                                      text(kTextNothingSelected), text(kTextNothingSelected)}));
  EXPECT_EQ(Rows(), ">-Post 3 ");
  EXPECT_EQ(frame_.questions.size(), 3U);
  EXPECT_EQ(frame_.reloads, 2) << "after a failure, as a part may have been done";
}

TEST_F(PostListPaneTest, ScrappingCopiesTheSelectedPostsAndSaysSoUnlessItFails) {
  PostList list = NumberedPosts(3);
  list.posts[2] = {0, 1, "", "text", "link", "2008", "title", "", "", 0, 0};
  AddCabinet(frame_.GetStore(), "Keep", 1);
  DialogAnswers answers;
  for (int i = 0; i < 2; ++i) answers.Next([](QDialog& cabinets) { cabinets.accept(); });
  ListAndSelect(std::move(list), {2, 0});
  Choose(kCommandScrap);
  EXPECT_EQ(Stored("scrap_post_title || scrap_post_scrapChannelID || scrap_post_link || "
                   "scrap_post_pubDate || scrap_post_desc) from TB_SCRAP_POST"),
            "Post 31,title1link2008text");
  frame_.db.Sql(
      "create trigger t before insert on TB_SCRAP_POST begin select raise(abort, ''); end");
  Choose(kCommandScrap);
  EXPECT_EQ(frame_.questions, Strings{kTextScrapFinished}) << "not when it failed";
  EXPECT_EQ(frame_.recounts, std::vector{true});
}

TEST_F(PostListPaneTest, AShownPostIsSelectedAndMarkedReadOnceWhereItIsStored) {
  pane_.Fill(ChannelPosts(3));
  const QRect mark(8, 38, 20, 19), title(60, 38, 100, 19);
  const QImage before[] = {list_.grab(mark).toImage(), list_.grab(title).toImage()};
  for (int i = 0; i < 2; ++i) pane_.Show(1);
  frame_.state.listMode = ListMode::WebDirectory;
  pane_.Show(0);
  EXPECT_EQ(Rows(), ">Post 3 >-Post 2 Post 1 ");
  list_.setCurrentIndex({});
  EXPECT_NE(list_.grab(mark).toImage(), before[0]);
  EXPECT_NE(list_.grab(title).toImage(), before[1]) << "it is bold no longer";
  EXPECT_EQ(frame_.read, (std::vector{std::pair(0, false)}));
  EXPECT_EQ(frame_.shown, (Strings{"Post 2", "Post 2", "Post 3"}));
}

TEST_F(PostListPaneTest, TheFirstPostShownIsTheOneAskedForOrTheFirst) {
  PostList list = ChannelPosts(3);
  list.posts[0].readStatus = 1;
  pane_.Fill(std::move(list));
  using enum FirstPost;
  for (const auto first : {First, LastUnread, FirstUnread, LastUnread}) pane_.ShowFirst(first);
  EXPECT_EQ(frame_.shown, (Strings{"Post 3", "Post 1", "Post 2", "Post 3"}));
}

TEST_F(PostListPaneTest, ClicksAndKeysShowTheCurrentPostOrTheNextUnreadOne) {
  using enum Qt::Key;
  PostList list = ChannelPosts(6);
  list.posts[2].readStatus = list.posts[3].readStatus = 1;
  pane_.Fill(std::move(list));
  for (int i = 0; i < 2; ++i) Press(0);
  EXPECT_EQ(frame_.state.unreadTotal, -2) << "each click counts, whatever was read before";
  for (const auto key : {Key_Return, Key_N, Key_Down, Key_Enter, Key_N, Key_P}) Key(key);
  EXPECT_FALSE(list_.findChild<QTimer*>("keyRest")->isActive()) << "nothing is left to be shown";
  EXPECT_EQ(frame_.shown, (Strings{"Post 6", "Post 6", "Post 6", "Post 5", "Post 4", "Post 2"}));
  Key(Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(Rows(), "-Post 6 -Post 5 -Post 4 -Post 3 >-Post 2 >Post 1 ");
  Key(Key_N);
  EXPECT_EQ(frame_.unreadRowsAsked, (std::vector{false, true}));
  Key(Key_A, Qt::ControlModifier);
  EXPECT_EQ(list_.SelectedRows().size(), 6U);
  Key(Key_F, Qt::ControlModifier);
  for (const auto key : {Key_X, Key_N, Key_Delete}) Key(key);
  EXPECT_EQ(word_.text(), "xn");
  Key(Key_Escape);
  EXPECT_TRUE(list_.hasFocus() && frame_.questions.empty());
}

TEST_F(PostListPaneTest, ThePageFollowsTheKeysWhereTheyRestAndBeforeAPostIsDeleted) {
  using enum Qt::Key;
  pane_.Fill(ChannelPosts(6));
  pane_.ShowFirst(FirstPost::Glimpse);
  EXPECT_EQ(Rows(), ">Post 6 Post 5 Post 4 Post 3 Post 2 Post 1 ");
  for (int i = 0; i < 2; ++i) pane_.MarkGlimpsed();
  auto& rest = *list_.findChild<QTimer*>("keyRest");
  rest.setInterval(0);
  for (const auto also : {Qt::NoModifier, Qt::ControlModifier, Qt::ShiftModifier}) {
    for (const auto key : {Key_Down, Key_Down}) Key(key);
    if (also) Key(Key_Up, also);  // now the current row is not the selected one, or not alone
    ASSERT_TRUE(QTest::qWaitFor([&] { return !rest.isActive(); }));
  }
  EXPECT_EQ(frame_.shown, (Strings{"Post 6", "Post 4"}));
  EXPECT_EQ(Rows(), "-Post 6 Post 5 -Post 4 Post 3 >Post 2 >Post 1 ");
  frame_.whileAsking = [&] { frame_.shown.push_back("deleted?"); };
  for (const auto key : {Key_Down, Key_Up, Key_Delete}) Key(key);
  EXPECT_EQ(frame_.shown, (Strings{"Post 6", "Post 4", "Post 2", "deleted?", "Post 1"}));
  pane_.ShowFirst(FirstPost::Glimpse);
  pane_.Refill(NumberedPosts(6));
  Key(Key_N);  // the glimpsed post counts as read
  EXPECT_EQ(Rows(), "-Post 6 >-Post 5 Post 4 Post 3 Post 2 Post 1 ");
}

TEST_F(PostListPaneTest, WhereRowsAreDeletedTheOthersStayOnTheirLines) {
  pane_.Fill(ChannelPosts(50));
  pane_.Show(3);
  Press(22, Qt::ControlModifier);
  list_.verticalScrollBar()->setValue(20);
  Press(25, Qt::ControlModifier);
  Choose(kCommandDelete);
  EXPECT_EQ(OnLine(0) + OnLine(1) + OnLine(2), "Post 30 Post 29 Post 27 ");
}

TEST_F(PostListPaneTest, TheTitlesTakeTheRoomThatIsLeftIfTheHostPlacesTheList) {
  const auto widths = [](const QTreeView& list) {
    QList<int> all;
    for (int column = 0; column < kPostColumnCount; ++column) all << list.columnWidth(column);
    return all;
  };
  EXPECT_EQ(widths(list_), (QList{30, 278, 100, 100})) << "it does not";
  frame_.skin.SetHostValue(kValueListPlace, "ABOVE");
  CRSS_RightTopContainer pane(frame_, frame_, frame_, nullptr);
  auto& list = *pane.findChild<CVxListCtrl*>();
  const auto room = [&] { return list.viewport()->width() - list.header()->length(); };
  pane.resize(700, 240);
  pane.show();
  const QList<int> start = widths(list);
  for (const int column : {0, 1, 2, 3}) {
    list.header()->resizeSection(column, start[column] + 20);
    EXPECT_EQ(room(), 0) << column;
  }
  EXPECT_EQ(widths(list).sliced(2), (QList{120, 120}));
  pane.resize(260, 240);
  EXPECT_LT(room(), 0) << "the titles stay readable";
}

struct CarefulListTest : PostListPaneTest {
  CarefulListTest() : PostListPaneTest({kValueSelection, kSelectionCareful}) {}
};

TEST_F(CarefulListTest, ARightPressActsOnItsPostAloneAndCtrlTakesAPostOutOfTheSelection) {
  const auto at = [this](int row) { return list_.visualRect(Index(row)).center(); };
  pane_.Fill(ChannelPosts(6));
  Press(1);
  for (const int row : {3, 1}) Press(row, Qt::ControlModifier);
  Choose(kCommandMarkRead, at(0));
  Choose(kCommandDelete, at(4));
  EXPECT_EQ(Rows(), "-Post 6 -Post 5 Post 4 >-Post 3 Post 1 ");
  EXPECT_EQ(frame_.shown, (Strings{"Post 5", "Post 3"}));
  EXPECT_EQ(frame_.state.unreadTotal, -2) << "what is taken out is not read";
  auto menu = OpenMenu(at(0));
  const QImage marked = list_.grab().toImage();
  menu->hide();
  EXPECT_NE(list_.grab().toImage(), marked);
  pane_.Refill(NumberedPosts(7));  // a refresh, while the menu is open
  for (QAction* const item : menu->actions())
    if (item->data() == kCommandDelete) item->trigger();
  QApplication::processEvents();
  EXPECT_EQ(Rows(), "Post 7 Post 5 Post 4 >Post 3 Post 2 Post 1 ");
  menu.reset();
  Press(0, Qt::ControlModifier);
  Choose(kCommandDelete, at(3));
  EXPECT_EQ(Rows(), ">-Post 5 Post 4 Post 2 Post 1 ") << "both of the selected posts";
}

TEST_F(CarefulListTest, ADragTakesTheSelectedPostsOrTheOneUnderItAndShowsNothing) {
  ListAndSelect(ChannelPosts(3), {0, 1});
  const auto drag = [this](int row) {
    const QPoint place = list_.visualRect(Index(row)).center();
    QTest::mousePress(list_.viewport(), Qt::LeftButton, {}, place);
    const QPoint away = place + QPoint(3, 30);
    QMouseEvent move(QEvent::MouseMove, away, list_.viewport()->mapToGlobal(away), Qt::NoButton,
                     Qt::LeftButton, {});
    QCoreApplication::sendEvent(list_.viewport(), &move);
    const std::unique_ptr<QDrag> begun(list_.findChild<QDrag*>());  // off screen it has ended
    std::string taken;
    for (const PostRow& post : dynamic_cast<DraggedPosts&>(*begun->mimeData()).Read(frame_))
      taken += post.title + " ";
    QTest::mouseRelease(list_.viewport(), Qt::LeftButton, {}, place + QPoint(3, 30));
    return taken;
  };
  EXPECT_EQ(drag(1), "Post 3 Post 2 ");
  EXPECT_EQ(drag(2), "Post 1 ");
  EXPECT_TRUE(frame_.shown.empty());
  EXPECT_EQ(frame_.messages.size(), 2U) << "that nothing has changed";
  EXPECT_EQ(Rows(), ">Post 3 >Post 2 Post 1 ");
}

TEST_F(PostListPaneTest, SortingAndRefillingKeepSelectionCurrentRowOrderAndPlaceByPost) {
  pane_.Fill(NumberedPosts(50));
  pane_.Show(2);
  Press(1, Qt::ControlModifier);
  list_.verticalScrollBar()->setValue(20);
  pane_.Refill(NumberedPosts(55));
  EXPECT_EQ(Title(0) + OnLine(0), "Post 55 Post 30 ");
  EXPECT_EQ(list_.SelectedRows(), (std::vector{6, 7}));
  EXPECT_EQ(list_.currentIndex().row(), 6);
  for (const std::string first : {"Post 1 ", "Post 9 ", "Post 55 ", "Post 1 ", "Post 9 "}) {
    QTest::mouseClick(list_.header()->viewport(), Qt::LeftButton, {}, {80, 5});
    EXPECT_EQ(Title(0) + OnLine(0), first + "Post 30 ");
  }
  PostList other = NumberedPosts(57);
  std::erase_if(other.posts, [](const PostRow& post) { return post.id == 49 || post.id == 30; });
  pane_.Refill(std::move(other));
  EXPECT_EQ(Title(0) + OnLine(1), "Post 9 Post 3 ");
  EXPECT_EQ(list_.SelectedRows().size(), 1U);
  pane_.Fill(NumberedPosts(40));  // begins anew
  EXPECT_EQ(OnLine(0), "Post 40 ");
}

TEST_F(PostListPaneTest, TheWordsOfASearchAreMarkedInTitlesAndBelowThem) {
  PostList list = NumberedPosts(3);
  list.posts[0].title = "A bridge with so long a title that it is cut before the other bridge, yes";
  list.posts[1].description = "<p>Two bridges, a bridge</p>";
  list.marked = "bridge";
  pane_.Fill(list);
  list_.setCurrentIndex({});
  // The pixels in the upper half of a row, and in the lower one, that have the marks' colour.
  const auto marks = [&](int row) {
    const QImage image = list_.viewport()->grab(list_.visualRect(Index(row))).toImage();
    std::pair<int, int> pixels;
    for (int y = 0; y < image.height(); ++y) {
      int& half = y < TwoLineDelegate::kRowHeight / 2 ? pixels.first : pixels.second;
      for (int x = 0; x < image.width(); ++x)
        half += image.pixelColor(x, y) == SkinColor(frame_.GetSkin(), kColorFound) ? 1 : 0;
    }
    return pixels;
  };
  const int once = marks(0).first;
  EXPECT_GT(once, 100) << "the second one is cut off";
  EXPECT_EQ(marks(1), std::pair(0, 0)) << "its title has none";
  pane_.SetTwoLines(true);
  EXPECT_GT(marks(0).first, once * 3 / 2);
  EXPECT_EQ(marks(0).second, 0);
  EXPECT_EQ(marks(1).first, 0);
  EXPECT_GT(marks(1).second, 100);
  EXPECT_EQ(marks(2), std::pair(0, 0));
  pane_.resize(230, 240);
  list.posts[1].ownerTitle = "A channel with a long name";
  pane_.Fill(list);
  EXPECT_GT(marks(1).second, 100) << "there is no room for the channel";
  pane_.Fill(NumberedPosts(3));
  EXPECT_EQ(marks(1), std::pair(0, 0)) << "nothing was searched for";
}

}  // namespace feedloom
