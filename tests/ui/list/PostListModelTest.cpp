#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include "store/StoreKit.h"
#include "ui/list/PostCells.h"
#include "ui/list/PostListModel.h"

namespace feedloom {
namespace {

PostRow Post(int id, const char* title, int readStatus) {
  PostRow post;
  post.id = id;
  post.title = Korean(title);
  post.readStatus = readStatus;
  post.published = "2008-05-01 10:00:00";
  post.ownerTitle = Korean("똠방각하 소식");
  return post;
}

class PostListModelTest : public testing::Test {
 protected:
  QString Text(int row, int column) {
    return model_.data(model_.index(row, column), Qt::DisplayRole).toString();
  }

  PostListModel model_{CodePage::Korean(), nullptr};
  QAbstractItemModelTester tester_{&model_, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(PostListModelTest, HasFourNamedColumns) {
  QStringList names;
  for (int column = 0; column < model_.columnCount(); ++column) {
    names << model_.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
  }
  EXPECT_EQ(names.join('/').toStdString(), "읽음/제목/작성일/채널명");
}

TEST_F(PostListModelTest, ARowTellsStatusTitleDayAndOwner) {
  model_.SetPosts({Post(7, "새 글", 0), Post(8, "읽은 글", 1)});
  EXPECT_EQ(Text(0, 0), "0");
  EXPECT_EQ(Text(1, 0), "1");
  EXPECT_EQ(Text(0, 1), "새 글");
  EXPECT_EQ(Text(0, 2), "2008-05-01");
  EXPECT_EQ(Text(0, 3), "똠방각하 소식");
  EXPECT_EQ(model_.index(0, 2).data(PostListModel::kIsReadRole), false);
}

TEST_F(PostListModelTest, AReadPostRepaintsItsWholeRow) {
  model_.SetPosts({Post(7, "a", 0), Post(8, "b", 0)});
  const QSignalSpy changes(&model_, &QAbstractItemModel::dataChanged);
  model_.MarkRead(1);
  EXPECT_EQ(Text(1, 0), "1");
  EXPECT_EQ(Text(0, 0), "0");
  ASSERT_EQ(changes.count(), 1);
  EXPECT_EQ(changes[0][0].toModelIndex(), model_.index(1, 0));
  EXPECT_EQ(changes[0][1].toModelIndex(), model_.index(1, 3));
}

TEST_F(PostListModelTest, NewRowsReplaceTheOldOnes) {
  model_.SetPosts({Post(7, "a", 0), Post(8, "b", 0)});
  model_.SetPosts({Post(9, "c", 0)});
  EXPECT_EQ(model_.rowCount(), 1);
  EXPECT_EQ(Text(0, 1), "c");
  model_.SetPosts({});
  EXPECT_EQ(model_.rowCount(), 0);
}

TEST(DateCellTest, ShowsTheDayOfAStoredDateOnly) {
  EXPECT_EQ(DateCell("2008-05-01 23:59:59"), "2008-05-01");
  EXPECT_EQ(DateCell("2007-5-1 9:3:0"), "2007-05-01");
  for (const char* unreadable : {"", "yesterday", "2008-05", "2008-13-01 00:00:00", "2008-05-00",
                                 "0001-01-01 00:00:00", "-008-05-01", "99999-01-01"}) {
    EXPECT_EQ(DateCell(unreadable), "") << unreadable;
  }
}

}  // namespace
}  // namespace feedloom
