// The list's rows: what their cells say, and their order.

#include <QLocale>
#include <QTextDocumentFragment>
#include <QtTest>

#include "kit/ThreadRefusal.h"
#include "store/StoreKit.h"
#include "ui/FoundWords.h"
#include "ui/PostList.h"
#include "ui/list/FirstWords.h"
#include "ui/list/PostListModel.h"

namespace feedloom {

using Ids = std::vector<int>;

static PostRow Post(int id, const char* title, int readStatus = 0,
                    const char* published = "2008-05-01") {
  return {readStatus, id, "", "", "", published, Korean(title), "", Korean("똠방각하 소식"), 0, 0};
}

struct PostListModelTest : testing::Test {
  PostListModelTest() { QLocale::setDefault(QLocale(QLocale::English)); }
  QString Text(int row, int column, int role = Qt::DisplayRole) {
    return model_.index(row, column).data(role).toString();
  }
  Ids Order() {
    Ids ids;
    for (int row = 0; row < model_.rowCount(); ++row) ids.push_back(model_.IdAt(row));
    return ids;
  }
  PostListModel model_{
      CodePage::Korean(), {{"a", "b", "c", "d", "e"}, "read", "unread", "up"}, nullptr};
  QAbstractItemModelTester tester_{&model_, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(PostListModelTest, KeepsAllOfAPostAndTellsStatusTitleDayAndOwner) {
  const PostRow full{1,    2, "c", std::string(5'000, 'd'), "http://x/", "p", {"t\0t", 3}, "u",
                     "ow", 1, 3,   "http://feed/",          true};
  model_.Fill(
      {.posts = {Post(7, "새 글"), Post(8, "읽은\n\x01글", 1, "2008-05-01 10:00:00"), full}});
  const auto fields = [](const PostRow& post) {
    const auto& [a, b, c, d, e, f, g, h, i, j, k, l, m] = post;
    return std::tuple(a, b, c, d, e, f, g, h, i, j, k, l, m);
  };
  EXPECT_EQ(fields(model_.At(2)), fields(full));
  EXPECT_EQ(Text(0, 0) + Text(0, 1) + Text(0, 2) + Text(0, 3), "0새 글2008-05-01똠방각하 소식");
  EXPECT_EQ(DateCell("1970-12-1 9:3:0"), "1970-12-01");
  for (const char* day : {"", "2008-13-01", "2008-00-01", "2008-05-00", "2008-05-32", "1969-12-31"})
    EXPECT_EQ(DateCell(day), "") << day;
  EXPECT_EQ(Text(1, 1, Qt::AccessibleTextRole), "읽은 글, read");
  model_.SetTwoLines(true);
  EXPECT_EQ(Text(1, 1, Qt::AccessibleTextRole), "읽은 글, read, 똠방각하 소식, 2008-05-01");
  EXPECT_EQ(QTextDocumentFragment::fromHtml(model_.index(1, 2).data(Qt::ToolTipRole).toString())
                .toPlainText(),
            "2008-05-01 10:00\n똠방각하 소식");
  const QSignalSpy changes(&model_, &QAbstractItemModel::dataChanged);
  model_.SetReadStatus(Ids{0}, 1);
  EXPECT_EQ(changes.at(0)[1].toModelIndex(), model_.index(0, 4)) << "the whole row";
  model_.Fill({.posts = {Post(7, "hit")}, .areFromWeb = true});
  EXPECT_FALSE(model_.index(0, 0).data(PostListModel::kIsReadRole).isValid());
}

TEST(FirstWords, AreTheTextWithoutMarkUpOnOneLine) {
  const std::pair<std::string, std::string> cases[] = {
      {"", ""},
      {"<style>p{}</style><p>One&nbsp;&amp; <b>two</b></p>\n<p>three<img src='a'></p>",
       "One & two three"},
      {"<P title='a > b'>1 < 2<!-- > --><bR/>w<b class=x>or</B>d &euro;&#44032;</p><p title=\"",
       "1 < 2 word €가"},
      {"<p>" + std::string(9'000, 'x'), std::string(200, 'x')}};
  for (const auto& [html, words] : cases)
    EXPECT_EQ(FirstWords(CodePage::Utf8(), html).toStdString(), words);
}

TEST(FoundWords, AreCountedInTheToolkitsCharacters) {
  const QString text = "🙂Über 🙂 강물이 uber";
  std::string found;
  for (const FoundWord& word : FindWords(text, ParseTextQuery("uber 강물")))
    found += text.sliced(word.begin, word.end - word.begin).toStdString() + '|';
  EXPECT_EQ(found, "Über|강물|uber|");
}

TEST_F(PostListModelTest, TellsTheWordsAroundTheFirstOneThatASearchHasFound) {
  PostList list{.posts = {Post(1, "a"), Post(2, "b")}, .marked = "강물"};
  list.posts[0].description = Korean("<p>" + std::string(9'000, 'x') + " 깊은 <b>강</b>물이</p>");
  list.posts[1].description = "<p>Nothing of it</p>";
  const auto words = [&](int row) { return Text(row, 1, PostListModel::kFirstWordsRole); };
  model_.Fill(list);
  EXPECT_EQ(words(0), "… 깊은 강물이");
  EXPECT_EQ(words(1), "Nothing of it");
  list.marked = "nothing";
  model_.Refill({.posts = {list.posts[1]}, .marked = "it"});
  EXPECT_EQ(words(0), "Nothing of it");
  model_.Fill({.posts = {list.posts[0]}});
  EXPECT_EQ(words(0), QString(200, 'x'));
}

TEST_F(PostListModelTest, SortsByEachColumnAndBack) {
  model_.Fill({.posts = {Post(1, "cherry", 0, "2008-05-03"), Post(2, "Banana", 1, "2008-05-01"),
                         Post(3, "apple", 0, "2008-05-02")}});
  model_.Append({.posts = {Post(4, "Banana", 0, "")}});
  const struct {
    int column;
    Ids ascending, descending;  // equal ones stay in the store's order
  } cases[] = {{kReadColumn, {1, 3, 4, 2}, {2, 1, 3, 4}},
               {kTitleColumn, {3, 2, 4, 1}, {1, 2, 4, 3}},
               {kDateColumn, {4, 2, 3, 1}, {1, 3, 2, 4}},
               {kOwnerColumn, {1, 2, 3, 4}, {1, 2, 3, 4}},
               {-1, {1, 2, 3, 4}, {1, 2, 3, 4}}};
  const QPersistentModelIndex apple = model_.index(2, 1);
  for (const auto& [column, ascending, descending] : cases) {
    model_.sort(column, Qt::AscendingOrder);
    EXPECT_EQ(Order(), ascending) << column;
    model_.sort(column, Qt::DescendingOrder);
    EXPECT_EQ(Order(), descending) << column;
    EXPECT_EQ(apple.data(), "apple");
  }
  model_.sort(kTitleColumn, Qt::AscendingOrder);
  model_.Append({.posts = {Post(5, "b")}});
  EXPECT_EQ(Order(), (Ids{3, 5, 2, 4, 1}));
  EXPECT_EQ(model_.headerData(1, Qt::Horizontal, Qt::AccessibleTextRole), "b, up");
  EXPECT_EQ(model_.headerData(1, Qt::Horizontal, Qt::DisplayRole), "b");
  model_.Remove(Ids{1, 3});
  EXPECT_EQ(Order(), (Ids{3, 2, 1}));
  EXPECT_EQ(apple.data(), "apple");
}

TEST_F(PostListModelTest, SortsManyTitlesInSeveralThreadsAndInOneWhenTheSystemRefusesMore) {
  PostList list;
  for (int i = 0; i < 20'000; ++i)
    list.posts.emplace_back().title = std::to_string((i * 7'919) % 20'000 + 10'000);
  model_.Fill(std::move(list));
  model_.sort(kTitleColumn, Qt::AscendingOrder);
  for (int row = 0; row < 20'000; ++row) ASSERT_EQ(Text(row, 1).toInt(), 10'000 + row);
  const ThreadRefusal refusal;
  model_.sort(kTitleColumn, Qt::DescendingOrder);
  for (int row = 0; row < 20'000; ++row) ASSERT_EQ(Text(row, 1).toInt(), 29'999 - row);
}

}  // namespace feedloom
