#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QLocale>
#include <QSignalSpy>
#include <tuple>

#include "store/StoreKit.h"
#include "ui/PostList.h"
#include "ui/list/PostListModel.h"

namespace feedloom {
namespace {

PostRow Post(int id, const char* title, int readStatus = 0, const char* published = "2008-05-01") {
  PostRow post;
  post.id = id;
  post.title = Korean(title);
  post.readStatus = readStatus;
  post.published = published;
  post.ownerTitle = Korean("똠방각하 소식");
  return post;
}

auto FieldsOf(const PostRow& post) {
  return std::tuple(post.readStatus, post.id, post.created, post.description, post.link,
                    post.published, post.title, post.updated, post.ownerTitle, post.isPodcast,
                    post.ownerId, post.feedUrl);
}

using IdList = std::vector<int>;

class PostListModelTest : public testing::Test {
 protected:
  PostListModelTest() { QLocale::setDefault(QLocale(QLocale::English)); }
  ~PostListModelTest() override { QLocale::setDefault(QLocale::system()); }

  QString Text(int row, int column) { return model_.index(row, column).data().toString(); }
  IdList Ids() {
    IdList ids;
    for (int row = 0; row < model_.rowCount(); ++row) ids.push_back(model_.IdAt(row));
    return ids;
  }

  PostListModel model_{CodePage::Korean(), {{"a", "b", "c", "d", "e"}, "read", "unread"}, nullptr};
  QAbstractItemModelTester tester_{&model_, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(PostListModelTest, ARowTellsStatusTitleDayAndOwner) {
  model_.Fill({.posts = {Post(7, "새 글"), Post(8, "읽은\n\x01글", 1)}});
  EXPECT_EQ(model_.columnCount(), 5);
  EXPECT_EQ(model_.headerData(4, Qt::Horizontal, Qt::DisplayRole), "e");
  EXPECT_EQ(Text(0, 0) + Text(1, 0), "01");
  EXPECT_EQ(model_.index(0, 0).data(Qt::AccessibleTextRole), "unread");
  EXPECT_EQ(model_.index(1, 0).data(Qt::AccessibleTextRole), "read");
  EXPECT_EQ(model_.index(1, 1).data(Qt::AccessibleTextRole), "읽은 글, read");
  EXPECT_EQ(Text(0, 1), "새 글");
  EXPECT_EQ(Text(1, 1), "읽은 글");
  EXPECT_EQ(Text(0, 2), "2008-05-01");
  EXPECT_EQ(Text(0, 3), "똠방각하 소식");
}

TEST_F(PostListModelTest, KeepsEveryFieldOfAPost) {
  const PostRow full{.readStatus = 1,
                     .id = 2,
                     .created = "c",
                     .description = std::string(5'000, 'd'),
                     .link = "http://x/",
                     .published = "2008-05-01 10:00:00",
                     .title = std::string("t\0t", 3),
                     .updated = "uu",
                     .ownerTitle = "owner",
                     .isPodcast = 1,
                     .ownerId = 3,
                     .feedUrl = "http://feed/"};
  model_.Fill({.posts = {full, PostRow()}});
  EXPECT_EQ(FieldsOf(model_.At(0)), FieldsOf(full));
  EXPECT_EQ(FieldsOf(model_.At(1)), FieldsOf(PostRow()));
}

TEST_F(PostListModelTest, AReadPostRepaintsItsWholeRow) {
  model_.Fill({.posts = {Post(7, "a"), Post(8, "b")}});
  const QSignalSpy changes(&model_, &QAbstractItemModel::dataChanged);
  model_.SetReadStatus(std::vector{1}, 1);
  EXPECT_EQ(Text(0, 0) + Text(1, 0), "01");
  ASSERT_EQ(changes.count(), 1);
  EXPECT_EQ(changes[0][0].toModelIndex(), model_.index(1, 0));
  EXPECT_EQ(changes[0][1].toModelIndex(), model_.index(1, 4));
}

TEST_F(PostListModelTest, SortsByEachColumnAndBack) {
  model_.Fill({.posts = {Post(1, "cherry", 0, "2008-05-03"), Post(2, "Banana", 1, "2008-05-01"),
                         Post(3, "apple", 0, "2008-05-02"), Post(4, "Banana", 0, "")}});
  const struct {
    int column;
    IdList ascending;
    IdList descending;  // equal ones stay in the store's order
  } cases[] = {{kReadColumn, {1, 3, 4, 2}, {2, 1, 3, 4}},
               {kTitleColumn, {3, 2, 4, 1}, {1, 2, 4, 3}},
               {kDateColumn, {4, 2, 3, 1}, {1, 3, 2, 4}},
               {kOwnerColumn, {1, 2, 3, 4}, {1, 2, 3, 4}},
               {4, {1, 2, 3, 4}, {1, 2, 3, 4}}};
  const QPersistentModelIndex apple = model_.index(2, 1);
  for (const auto& [column, ascending, descending] : cases) {
    model_.sort(column, Qt::AscendingOrder);
    EXPECT_EQ(Ids(), ascending) << column;
    model_.sort(column, Qt::DescendingOrder);
    EXPECT_EQ(Ids(), descending) << column;
    EXPECT_EQ(apple.data(), "apple");
  }
  model_.sort(-1, Qt::AscendingOrder);
  EXPECT_EQ(Ids(), (IdList{1, 2, 3, 4}));
}

TEST_F(PostListModelTest, NewRowsAreSortedOnlyWhenTheyRefillTheList) {
  model_.Fill({.posts = {Post(1, "b"), Post(2, "a")}});
  model_.sort(kTitleColumn, Qt::AscendingOrder);
  model_.Refill({.posts = {Post(3, "c"), Post(1, "b"), Post(2, "a")}, .areScrapPosts = true});
  EXPECT_EQ(Ids(), (IdList{2, 1, 3}));
  EXPECT_TRUE(model_.AreScrapPosts());
  model_.Fill({.posts = {Post(3, "c"), Post(1, "b")}});
  EXPECT_EQ(Ids(), (IdList{3, 1}));
  model_.sort(kTitleColumn, Qt::AscendingOrder);
  EXPECT_EQ(Ids(), (IdList{1, 3})) << "the order of the list before is forgotten";
}

// Enough of them to be shared out among threads.
TEST_F(PostListModelTest, SortsManyTitlesWhateverTheyHold) {
  PostList list;
  for (int i = 0; i < 20'000; ++i) {
    list.posts.push_back(Post(i, std::to_string((i * 7'919) % 20'000 + 10'000).c_str()));
  }
  list.posts[5].title.assign(100'000, '\xFF');
  list.posts[6].title.clear();
  list.posts[7].title = "\n\t\x01";
  model_.Fill(std::move(list));
  model_.sort(kTitleColumn, Qt::AscendingOrder);
  EXPECT_EQ(model_.IdAt(0), 6);
  EXPECT_EQ(model_.IdAt(1), 7);
  for (int row = 3; row < model_.rowCount() - 1; ++row) {
    ASSERT_LT(Text(row - 1, kTitleColumn), Text(row, kTitleColumn)) << row;
  }
}

TEST_F(PostListModelTest, RemovesRowsWhereverTheyStand) {
  for (const auto& [rows, left] : std::vector<std::pair<IdList, IdList>>{{{0}, {2, 3, 4, 5}},
                                                                         {{1, 3}, {1, 3, 5}},
                                                                         {{3, 4}, {1, 2, 3}},
                                                                         {{0, 1, 2, 3, 4}, {}},
                                                                         {{}, {1, 2, 3, 4, 5}}}) {
    model_.Fill({.posts = {Post(1, "e"), Post(2, "d"), Post(3, "c"), Post(4, "b"), Post(5, "a")}});
    const QPersistentModelIndex third = model_.index(2, 1);
    model_.Remove(rows);
    EXPECT_EQ(Ids(), left);
    EXPECT_EQ(third.data(), left.empty() ? QVariant() : QVariant("c"));
    model_.sort(kTitleColumn, Qt::AscendingOrder);
    EXPECT_EQ(Ids(), IdList(left.rbegin(), left.rend()));
  }
}

TEST(PostCellsTest, ADateShowsItsDayOnly) {
  EXPECT_EQ(DateCell("2008-05-01 23:59:59"), "2008-05-01");
  EXPECT_EQ(DateCell("2007-5-1 9:3:0"), "2007-05-01");
  for (const char* unreadable : {"", "yesterday", "2008-05", "2008-13-01 00:00:00", "2008-05-00",
                                 "0001-01-01 00:00:00", "-008-05-01", "99999-01-01"}) {
    EXPECT_EQ(DateCell(unreadable), "") << unreadable;
  }
}

TEST(PostCellsTest, HeadingsEndWithTheLastWholeCharacterOf511Bytes) {
  const auto headings = [](const std::string& utf8) {
    return HeadingsIn(CodePage::Korean(), Korean(utf8));
  };
  EXPECT_EQ(headings("읽음|제목|작성일|채널명"), (QStringList{"읽음", "제목", "작성일", "채널명"}));
  EXPECT_EQ(headings(std::string(508, 'x') + "|y|z")[1], "y");
  EXPECT_EQ(headings(std::string(508, 'x') + "|가|z"), (QStringList{QString(508, 'x'), "가"}));
  EXPECT_EQ(headings(std::string(509, 'x') + "|가"), (QStringList{QString(509, 'x'), ""}));
}

TEST_F(PostListModelTest, AppendedRowsStandBehindTheOthersOrWhereTheSortingPutsThem) {
  model_.Fill({.posts = {Post(1, "b"), Post(2, "d")}});
  model_.Append({.posts = {Post(3, "a")}});
  model_.Append({});
  EXPECT_EQ(Ids(), (IdList{1, 2, 3}));
  model_.sort(kTitleColumn, Qt::AscendingOrder);
  model_.Append({.posts = {Post(4, "c")}});
  EXPECT_EQ(Ids(), (IdList{3, 1, 4, 2}));
  model_.sort(-1, Qt::AscendingOrder);
  EXPECT_EQ(Ids(), (IdList{1, 2, 3, 4}));
}

}  // namespace
}  // namespace feedloom
