// Channels and folders that are moved, by the mouse and by keys.
#include "ui/SavedPosts.h"
#include "ui/tree/LeftPaneFixture.h"

namespace feedloom {

struct TreeMoves : LeftPaneFixture {
  TreeMoves() {
    frame.skin.SetHostValue(kValueSelection, kSelectionCareful);
    frame.db.AddChannelWithPosts(sports, "Ball", 4);
    AddFolder(store, "Zoo", 9);
    AddFolder(store, "Host", -1);
    Open();
  }

  // Drags the row to that part of another one's height, or below all rows.
  void Drag(const char* label, const char* target, double height) {
    const std::unique_ptr<QMimeData> data(tree->model()->mimeData({Row(label)}));
    Drop(*data, Qt::MoveAction, target, height);
  }
  void Drop(QMimeData& data, Qt::DropAction action, const char* target, double height) {
    const QRect rect = tree->visualRect(Row(target));
    const QPoint place =
        *target ? QPoint(rect.center().x(), rect.top() + qRound(height * (rect.height() - 1)))
                : QPoint(50, tree->viewport()->height() - 1);
    QDragEnterEvent enter(place, action, &data, Qt::LeftButton, {});
    QDragMoveEvent move(place, action, &data, Qt::LeftButton, {});
    QDropEvent drop(place, action, &data, Qt::LeftButton, {});
    for (QEvent* event :
         {static_cast<QEvent*>(&enter), static_cast<QEvent*>(&move), static_cast<QEvent*>(&drop)})
      QApplication::sendEvent(tree->viewport(), event);
  }
};

TEST_F(TreeMoves, ARowThatIsDraggedStandsWhereItIsDroppedAndStaysThere) {
  Click(PlaceOf("Daily"));
  const std::tuple<const char*, const char*, double, const char*> cases[] = {
      {"Daily", "Weekly", 1, "Host News(3) Weekly(1) [Daily(2)] Sports(4) Ball(4) Zoo"},
      {"Weekly", "Weekly", 1, "Host News(3) Weekly(1) [Daily(2)] Sports(4) Ball(4) Zoo"},
      {"Ball", "Weekly", 0, "Host News(7) Ball(4) Weekly(1) [Daily(2)] Sports Zoo"},
      {"Daily", "Sports", 0.5, "Host News(5) Ball(4) Weekly(1) Sports(2) [Daily(2)] Zoo"},
      {"Weekly", "Zoo", 0, "Host News(4) Ball(4) Sports(3) [Daily(2)] Weekly(1) Zoo"},
      {"Zoo", "News", 0, "Host Zoo News(4) Ball(4) Sports(3) [Daily(2)] Weekly(1)"},
      {"Zoo", "", 0, "Host News(4) Ball(4) Sports(3) [Daily(2)] Weekly(1) Zoo"},
      {"News", "Zoo", 0.5, "Host Sports(3) [Daily(2)] Weekly(1) Zoo News(4) Ball(4)"},
      // Nowhere:
      {"Zoo", "Host", 0, "Host Sports(3) [Daily(2)] Weekly(1) Zoo News(4) Ball(4)"},
      {"Host", "News", 0.5, "Host Sports(3) [Daily(2)] Weekly(1) Zoo News(4) Ball(4)"},
      {"Daily", "Keep", 0.5, "Host Sports(3) [Daily(2)] Weekly(1) Zoo News(4) Ball(4)"},
      {"Keep", "News", 0.5, "Host Sports(3) [Daily(2)] Weekly(1) Zoo News(4) Ball(4)"}};
  for (const auto& [row, target, height, rows] : cases) {
    Drag(row, target, height);
    EXPECT_EQ(Rows(), rows + std::string(" 보관함(1) Keep(1) Later")) << row << " on " << target;
  }
  Open();
  EXPECT_EQ(Rows(),
            "Host Sports(3) Daily(2) Weekly(1) Zoo News(4) Ball(4) 보관함(1) Keep(1) Later");
}

TEST_F(TreeMoves, PostsComeIntoTheCabinetOnWhichTheyAreDroppedAndNowhereElse) {
  PostRow found;
  found.title = "found";
  DraggedPosts posts({.posts = {1, 2, 99}}, {found});
  DraggedPosts saved({.saved = {1}}, {});
  for (const char* const target : {"News", "Daily", "보관함", ""})
    Drop(posts, Qt::CopyAction, target, 0.5);
  EXPECT_TRUE(frame.messages.empty());
  Drop(posts, Qt::CopyAction, "Later", 0);
  Drop(saved, Qt::CopyAction, "Later", 1);
  EXPECT_EQ(Rows().substr(Rows().find("보관함")), "보관함(5) Keep(1) Later(4)");
  EXPECT_EQ(frame.messages.size(), 2U);
  frame.db.Sql("delete from TB_SCRAP_CHANNEL where scrap_channel_title = 'Later'");
  Drop(posts, Qt::CopyAction, "Later", 0.5);
  EXPECT_EQ(frame.messages.back(), GetLabel(frame.GetSkin(), kLabelDropGone));
  EXPECT_EQ(frame.db.Count("TB_SCRAP_POST"), 5);
}

TEST_F(TreeMoves, ARowThatCannotBeStoredThereStaysAndThatIsSaid) {
  const std::string before = Rows();
  frame.db.Sql(
      "insert into TB_CHANNEL(channel_title, channel_xmllink, channel_folderID) "
      "values('Same', 'http://example.com/Daily', 2)");
  Drag("Daily", "Sports", 0.5);
  frame.db.Sql(
      "create trigger t before update on TB_CHANNEL begin select raise(fail, 'full'); end");
  Drag("Weekly", "Daily", 0);
  frame.db.Sql("drop trigger t; delete from TB_FOLDER where folder_name = 'Zoo'");
  Drag("Weekly", "Zoo", 0.5);
  EXPECT_EQ(Rows(), before);
  EXPECT_EQ(frame.messages.size(), 3U);
  EXPECT_EQ(frame.db.Count("TB_CHANNEL where channel_folderID = 1"), 2) << "not lost";
}

TEST_F(TreeMoves, KeysMoveTheSelectedRowAsFarAsItsFolderGoes) {
  Click(PlaceOf("Daily"));
  for (int i = 0; i < 2; ++i) QTest::keyClick(tree, Qt::Key_Down, Qt::AltModifier);
  EXPECT_EQ(Rows().substr(0, 33), "Host News(3) Weekly(1) [Daily(2)]");
  Click(PlaceOf("News"));
  for (int i = 0; i < 5; ++i) QTest::keyClick(tree, Qt::Key_Down, Qt::AltModifier);
  for (int i = 0; i < 2; ++i) QTest::keyClick(tree, Qt::Key_Up, Qt::AltModifier);
  QTest::keyClick(tree, Qt::Key_Down, Qt::AltModifier);
  EXPECT_EQ(Rows().substr(0, 32), "Host Sports(4) Ball(4) [News(3)]");
}

TEST_F(TreeMoves, APressSelectsARowOnlyWhenTheButtonIsReleasedThere) {
  QTest::mousePress(tree->viewport(), Qt::LeftButton, {}, PlaceOf("Daily"));
  EXPECT_TRUE(frame.lists.empty());
  QTest::mouseRelease(tree->viewport(), Qt::LeftButton, {}, PlaceOf("Weekly"));
  EXPECT_TRUE(frame.lists.empty());
  Click(PlaceOf("Daily"));
  EXPECT_EQ(frame.lists.size(), 1U);
  QTest::mouseDClick(tree->viewport(), Qt::LeftButton, {}, PlaceOf("News"));
  EXPECT_FALSE(tree->isExpanded(Row("News")));
}

}  // namespace feedloom
