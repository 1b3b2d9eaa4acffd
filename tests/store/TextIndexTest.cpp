// The index finds what the texts themselves hold, whatever has become of them since.
#include <random>

#include "kit/Rows.h"
#include "store/StoreKit.h"
#include "store/TextIndex.h"
#include "store/TextSearch.h"

namespace feedloom {
namespace {

// One database with the index and one without, which get the same posts.
class IndexedAndPlain : public testing::Test {
 protected:
  IndexedAndPlain() {
    indexed_.AddTables({"post_details.sql", "text_index.sql"});
    Sql("insert into TB_CHANNEL(channel_id, channel_folderID, channel_title) values(1, 1, 'One')");
    Sql("insert into TB_SCRAP_CHANNEL(scrap_channel_id, scrap_channel_title) values(1, 'Kept')");
  }

  void Sql(const std::string& sql) {
    indexed_.Sql(sql);
    plain_.Sql(sql);
  }
  void IndexAll() {
    while (IndexSomeTexts(indexed_.Get()).value_or(0) > 0) {
    }
  }
  int Random(int below) { return std::uniform_int_distribution(0, below - 1)(random_); }
  std::string Words(int most) {
    constexpr const char* kWords[] = {"linux",    "Über",  "한국",       "한국경제", "국경",
                                      "경제",     "뉴스",  "KBS뉴스",    "a",        "the",
                                      "ニュース", "micro", "microscope", "<b>"};
    std::string words;
    for (int count = Random(most) + 1; count > 0; --count)
      words += std::string(words.empty() || Random(4) == 0 ? "" : " ") + kWords[Random(14)];
    return Encoded(words);
  }
  std::string Encoded(const std::string& utf8) {
    return indexed_.Get().TextCodePage().FromUtf8(utf8);
  }
  std::string Query() {
    constexpr const char* kQueries[] = {"linux",
                                        "uber",
                                        "한국",
                                        "한",
                                        "국",
                                        "한국경제",
                                        "국경 -linux",
                                        "\"한국 경제\"",
                                        "\"the a\"",
                                        "micro*",
                                        "title:뉴스",
                                        "kbs뉴스",
                                        "뉴스 until:2006-05",
                                        "\"linux the\" a",
                                        "channel:one",
                                        "title:\"the a\"*",
                                        "linux since:2007",
                                        "ニュー",
                                        "\"a 한국\"",
                                        "title:linux micro*"};
    return kQueries[Random(20)];
  }
  void ChangeSomething() {
    const std::string saved = Random(3) == 0 ? "scrap_" : "";
    const std::string table = saved.empty() ? "TB_POST" : "TB_SCRAP_POST";
    const std::string owner = saved.empty() ? "post_channelID" : "scrap_post_scrapChannelID";
    const std::string id = std::to_string(Random(60) + 1);
    const std::string date = "200" + std::to_string(Random(9)) + "-05-01 00:00:00";
    const std::string titled = "'" + Words(3) + "'";
    switch (Random(6)) {
      case 0:
        return Sql("delete from " + table + " where " + saved + "post_id = " + id);
      case 1:
        return Sql("update " + table + " set " + saved + "post_title = " + titled + ", " + saved +
                   "post_readStatus = 1 where " + saved + "post_id = " + id);
      default:
        return Sql("insert or ignore into " + table + "(" + saved + "post_id, " + owner + ", " +
                   saved + "post_title, " + saved + "post_desc, " + saved +
                   "post_pubDate) values(" + id + ", 1, " + titled + ", '" + Words(12) + "', '" +
                   date + "')");
    }
  }
  static std::string Found(TestStore& db, const TextSearch& search) {
    const auto hits = SearchTexts(db.Get(), search);
    std::string found = hits ? "" : "failed";
    for (std::size_t i = 0; hits && i < hits->posts.size(); ++i)
      found += (hits->posts[i].isSaved ? "s" : "p") + std::to_string(hits->posts[i].id) + " ";
    return found + (hits && hits->hasMore ? "+" : "");
  }

  TestStore indexed_;
  TestStore plain_;
  std::mt19937 random_{7};
};

TEST_F(IndexedAndPlain, FindTheSame) {
  int found = 0;
  for (int round = 0; round < 30; ++round) {
    for (int change = 0; change < 15; ++change) ChangeSomething();
    if (round % 3 != 0) IndexAll();
    for (int query = 0; query < 8; ++query) {
      const TextSearch search{.query = Query(),
                              .order = static_cast<HitOrder>(Random(2)),
                              .most = Random(2) == 0 ? 3u : 1000u};
      const std::string expected = Found(plain_, search);
      ASSERT_EQ(Found(indexed_, search), expected) << search.query << " in round " << round;
      ASSERT_EQ(CountUnreadHits(indexed_.Get(), search), CountUnreadHits(plain_.Get(), search));
      if (!expected.empty()) ++found;
    }
  }
  EXPECT_GT(found, 120);
  EXPECT_TRUE(indexed_.Reports().empty());
}

TEST_F(IndexedAndPlain, TextsThatWereThereBeforeWaitForTheIndex) {
  for (int change = 0; change < 30; ++change) ChangeSomething();
  const int texts = plain_.Count("TB_POST") + plain_.Count("TB_SCRAP_POST");
  EXPECT_EQ(ReadIndexState(plain_.Get()), std::nullopt);
  plain_.AddTables({"text_index.sql"});
  EXPECT_EQ(ReadIndexState(plain_.Get())->waiting, texts);
  EXPECT_EQ(IndexSomeTexts(plain_.Get()), texts);
  plain_.AddTables({"text_index.sql"});
  EXPECT_EQ(ReadIndexState(plain_.Get())->waiting, 0);
  EXPECT_EQ(ReadIndexState(plain_.Get())->indexed, texts);
}

TEST_F(IndexedAndPlain, ADamagedIndexIsPassedByAndBeginsAnew) {
  for (int change = 0; change < 60; ++change) ChangeSomething();
  IndexAll();
  const TextSearch search{.query = "linux"};
  indexed_.Sql("update TB_TEXT_INDEX_data set block = x'00ff00ff' where id > 10");
  const auto hits = SearchTexts(indexed_.Get(), search);
  ASSERT_TRUE(hits);
  EXPECT_TRUE(hits->wasDamaged);
  EXPECT_EQ(Found(indexed_, search), Found(plain_, search));
  EXPECT_GT(ReadIndexState(indexed_.Get())->waiting, 0);
  IndexAll();
  EXPECT_FALSE(SearchTexts(indexed_.Get(), search)->wasDamaged);
  EXPECT_EQ(Found(indexed_, search), Found(plain_, search));
}

TEST_F(IndexedAndPlain, AnIndexOfMostlyGoneTextsIsMadeAnew) {
  Sql("insert into TB_POST(post_channelID, post_title) with recursive n(i) as (select 1 union all "
      "select i + 1 from n where i < 30) select 1, 'linux' from n");
  IndexAll();
  indexed_.Sql("update sqlite_sequence set seq = 50000 where name = 'TB_TEXT_DOC'");
  indexed_.Sql("update TB_POST set post_title = 'gone'");
  IndexAll();
  EXPECT_EQ(ReadIndexState(indexed_.Get())->indexed, 30);
  EXPECT_EQ(indexed_.Value("select max(text_doc) from TB_TEXT_DOC"), "30");
  EXPECT_EQ(Found(indexed_, {.query = "linux"}), "");
  EXPECT_NE(Found(indexed_, {.query = "gone"}), "");
}

TEST_F(IndexedAndPlain, AQueryOfManyWordsIsNoDamage) {
  Sql("insert into TB_POST(post_channelID, post_title, post_desc) values(1, 'a', 'b')");
  IndexAll();
  std::string query;
  for (int i = 0; i < 199; ++i) query += (i % 2 == 0 ? "a " : "한b ");
  const auto hits = SearchTexts(indexed_.Get(), {.query = query});
  EXPECT_TRUE(hits && !hits->wasDamaged && hits->posts.empty());
}

}  // namespace
}  // namespace feedloom
