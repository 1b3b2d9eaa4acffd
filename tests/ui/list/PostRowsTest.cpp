// The list's rows: what their cells say, and their order.
#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QLocale>
#include <QSignalSpy>

#include "store/StoreKit.h"
#include "ui/PostList.h"
#include "ui/list/PostListModel.h"
namespace feedloom {
namespace {

using Ids = std::vector<int>;

PostRow Post(int id, const char* title, int readStatus = 0, const char* published = "2008-05-01") {
  return {readStatus, id, "", "", "", published, Korean(title), "", Korean("똠방각하 소식"), 0, 0};
}

class PostListModelTest : public testing::Test {
 protected:
  PostListModelTest() { QLocale::setDefault(QLocale(QLocale::English)); }
  ~PostListModelTest() override { QLocale::setDefault(QLocale::system()); }
  QString Text(int row, int column, int role = Qt::DisplayRole) {
    return model_.index(row, column).data(role).toString();
  }
  Ids Order() {
    Ids ids;
    for (int row = 0; row < model_.rowCount(); ++row) ids.push_back(model_.IdAt(row));
    return ids;
  }
  PostListModel model_{CodePage::Korean(), {{"a", "b", "c", "d", "e"}, "read", "unread"}, nullptr};
  QAbstractItemModelTester tester_{&model_, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(PostListModelTest, KeepsAllOfAPostAndTellsStatusTitleDayAndOwner) {
  const PostRow full{1,    2, "c", std::string(5'000, 'd'), "http://x/", "p", {"t\0t", 3}, "u",
                     "ow", 1, 3,   "http://feed/"};
  model_.Fill({.posts = {Post(7, "새 글"), Post(8, "읽은\n\x01글", 1), full}});
  const PostRow p = model_.At(2);
  EXPECT_EQ(std::tie(p.readStatus, p.id, p.created, p.description, p.link, p.published, p.title,
                     p.updated, p.ownerTitle, p.isPodcast, p.ownerId, p.feedUrl),
            std::tie(full.readStatus, full.id, full.created, full.description, full.link,
                     full.published, full.title, full.updated, full.ownerTitle, full.isPodcast,
                     full.ownerId, full.feedUrl));
  EXPECT_EQ(Text(0, 0) + Text(0, 1) + Text(0, 2) + Text(0, 3), "0새 글2008-05-01똠방각하 소식");
  EXPECT_EQ(Text(1, 0) + Text(1, 1), "1읽은 글");
  EXPECT_EQ(Text(0, 0, Qt::AccessibleTextRole), "unread");
  EXPECT_EQ(Text(1, 1, Qt::AccessibleTextRole), "읽은 글, read");
  EXPECT_EQ(model_.headerData(4, Qt::Horizontal, Qt::DisplayRole), "e");
  const QSignalSpy changes(&model_, &QAbstractItemModel::dataChanged);
  model_.SetReadStatus(Ids{0}, 1);
  EXPECT_EQ(Text(0, 0), "1");
  EXPECT_EQ(changes.at(0)[0].toModelIndex(), model_.index(0, 0));
  EXPECT_EQ(changes.at(0)[1].toModelIndex(), model_.index(0, 4)) << "the whole row";
}

TEST_F(PostListModelTest, SortsByEachColumnAndBack) {
  model_.Fill({.posts = {Post(1, "cherry", 0, "2008-05-03"), Post(2, "Banana", 1, "2008-05-01"),
                         Post(3, "apple", 0, "2008-05-02"), Post(4, "Banana", 0, "")}});
  const struct {
    int column;
    Ids ascending, descending;  // equal ones stay in the store's order
  } cases[] = {
      {kReadColumn, {1, 3, 4, 2}, {2, 1, 3, 4}}, {kTitleColumn, {3, 2, 4, 1}, {1, 2, 4, 3}},
      {kDateColumn, {4, 2, 3, 1}, {1, 3, 2, 4}}, {kOwnerColumn, {1, 2, 3, 4}, {1, 2, 3, 4}},
      {4, {1, 2, 3, 4}, {1, 2, 3, 4}},           {-1, {1, 2, 3, 4}, {1, 2, 3, 4}}};
  const QPersistentModelIndex apple = model_.index(2, 1);
  for (const auto& [column, ascending, descending] : cases) {
    model_.sort(column, Qt::AscendingOrder);
    EXPECT_EQ(Order(), ascending) << column;
    model_.sort(column, Qt::DescendingOrder);
    EXPECT_EQ(Order(), descending) << column;
    EXPECT_EQ(apple.data(), "apple");
  }
}

TEST_F(PostListModelTest, NewRowsAreSortedUnlessTheyFillTheList) {
  model_.Fill({.posts = {Post(1, "b"), Post(2, "d")}});
  model_.Append({.posts = {Post(3, "a")}});
  model_.Append({});
  EXPECT_EQ(Order(), (Ids{1, 2, 3}));
  model_.sort(kTitleColumn, Qt::AscendingOrder);
  model_.Append({.posts = {Post(4, "c")}});
  EXPECT_EQ(Order(), (Ids{3, 1, 4, 2}));
  model_.Refill({.posts = {Post(3, "c"), Post(1, "b")}, .areScrapPosts = true});
  EXPECT_EQ(Order(), (Ids{1, 3}));
  EXPECT_TRUE(model_.AreScrapPosts());
  model_.Fill({.posts = {Post(3, "c"), Post(1, "b")}});
  EXPECT_EQ(Order(), (Ids{3, 1}));
  model_.sort(kTitleColumn, Qt::AscendingOrder);
  EXPECT_EQ(Order(), (Ids{1, 3})) << "the order of the list before is forgotten";
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
  EXPECT_TRUE(model_.IdAt(0) == 6 && model_.IdAt(1) == 7);
  for (int row = 3; row < model_.rowCount() - 1; ++row) {
    ASSERT_LT(Text(row - 1, kTitleColumn), Text(row, kTitleColumn)) << row;
  }
}

TEST_F(PostListModelTest, RemovesRowsWhereverTheyStand) {
  const std::pair<Ids, Ids> cases[] = {{{0}, {2, 3, 4, 5}},
                                       {{1, 3}, {1, 3, 5}},
                                       {{3, 4}, {1, 2, 3}},
                                       {{0, 1, 2, 3, 4}, {}},
                                       {{}, {1, 2, 3, 4, 5}}};
  for (const auto& [rows, left] : cases) {
    model_.Fill({.posts = {Post(1, "e"), Post(2, "d"), Post(3, "c"), Post(4, "b"), Post(5, "a")}});
    const QPersistentModelIndex third = model_.index(2, 1);
    model_.Remove(rows);
    EXPECT_EQ(Order(), left);
    EXPECT_EQ(third.data(), left.empty() ? QVariant() : QVariant("c"));
    model_.sort(kTitleColumn, Qt::AscendingOrder);
    EXPECT_EQ(Order(), Ids(left.rbegin(), left.rend()));
  }
}

TEST(PostCellsTest, ADateShowsItsDayAndHeadingsEndWithTheLastWholeCharacterOf511Bytes) {
  EXPECT_EQ(DateCell("2008-05-31 23:59:59"), "2008-05-31");
  EXPECT_EQ(DateCell("1970-12-1 9:3:0"), "1970-12-01");
  for (const char* unreadable : {"", "yesterday", "2008-05", "2008-13-01", "2008-00-01",
                                 "2008-05-00", "2008-05-32", "1969-12-31", "-008-05-01"}) {
    EXPECT_EQ(DateCell(unreadable), "") << unreadable;
  }
  const auto headings = [](const std::string& utf8) {
    return SplitHeadings(CodePage::Korean(), Korean(utf8));
  };
  EXPECT_EQ(headings("읽음|제목"), (QStringList{"읽음", "제목"}));
  EXPECT_EQ(headings(std::string(508, 'x') + "|y|z")[1], "y");
  EXPECT_EQ(headings(std::string(508, 'x') + "|가|z"), (QStringList{QString(508, 'x'), "가"}));
  EXPECT_EQ(headings(std::string(509, 'x') + "|가"), (QStringList{QString(509, 'x'), ""}));
}

}  // namespace
}  // namespace feedloom
