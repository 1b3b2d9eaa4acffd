// The search in titles and texts of posts and saved posts.
#include "kit/Rows.h"
#include "store/StoreKit.h"
#include "store/TextSearch.h"

namespace feedloom {
namespace {

struct Texts : testing::Test {
  Texts() {
    db_.AddTables({"post_details.sql"});
    db_.Sql(
        "insert into TB_CHANNEL(channel_id, channel_folderID, channel_title) values(1, 1, 'One'), "
        "(2, 7, 'Two')");
    db_.Sql(
        "insert into TB_SCRAP_CHANNEL(scrap_channel_id, scrap_channel_title) values(3, 'Kept')");
  }
  void AddPost(int channel, const std::string& title, const std::string& text,
               const std::string& date = "2006-01-01 00:00:00", int read = 0) {
    db_.Sql(
        "insert into TB_POST(post_channelID, post_title, post_desc, post_pubDate, post_readStatus) "
        "values(" +
        std::to_string(channel) + ", '" + title + "', '" + text + "', '" + date + "', " +
        std::to_string(read) + ")");
  }
  void AddSaved(const std::string& title, const std::string& text) {
    db_.Sql(
        "insert into TB_SCRAP_POST(scrap_post_scrapChannelID, scrap_post_title, scrap_post_desc, "
        "scrap_post_pubDate) values(3, '" +
        title + "', '" + text + "', '2005-01-01 00:00:00')");
  }
  // The titles of the hits in their order; "*" behind a saved post's, "+" when there are more.
  std::string Found(const TextSearch& search) {
    const auto hits = SearchTexts(db_.Get(), search);
    std::string titles = hits ? "" : "(failure)";
    for (std::size_t i = 0; hits && i < hits->posts.size(); ++i)
      titles += (i == 0 ? "" : ",") + hits->posts[i].title + (hits->posts[i].isSaved ? "*" : "");
    return titles + (hits && hits->hasMore ? "+" : "");
  }

  TestStore db_;
};

TEST_F(Texts, FindsPostsAndSavedPostsBestOrNewestFirst) {
  AddPost(1, "old", "about linux", "2001-01-01 00:00:00");
  AddPost(2, "new", "about linux", "2009-01-01 00:00:00");
  AddPost(1, "Linux", "in the title", "2002-01-01 00:00:00");
  AddPost(1, "other", "nothing");
  AddSaved("kept", "<b>linux</b>");
  EXPECT_EQ(Found({.query = "linux"}), "Linux,new,kept*,old");
  EXPECT_EQ(Found({.query = "linux", .order = HitOrder::kDate}), "new,kept*,Linux,old");
  EXPECT_EQ(Found({.query = "linux", .most = 2}), "Linux,new+");
  EXPECT_EQ(Found({.query = "windows"}), "");
  EXPECT_EQ(Found({.query = "\"\""}), "") << "a query with a fault";
}

TEST_F(Texts, FindsOnlyWhatARowOfTheTreeHolds) {
  AddPost(1, "a", "word");
  AddPost(2, "b", "word", "2006-01-01 00:00:00", 1);
  AddSaved("c", "word");
  EXPECT_EQ(Found({.query = "word", .within = RowKey{RowKind::Channel, 1}}), "a");
  EXPECT_EQ(Found({.query = "word", .within = RowKey{RowKind::Folder, 7}}), "b");
  EXPECT_EQ(Found({.query = "word", .within = RowKey{RowKind::CabinetRoot, 0}}), "c*");
  EXPECT_EQ(Found({.query = "word", .within = RowKey{RowKind::Cabinet, 4}}), "");
  EXPECT_EQ(CountUnreadHits(db_.Get(), {.query = "word"}), 2);
  EXPECT_EQ(CountUnreadHits(db_.Get(), {.query = "word", .within = RowKey{RowKind::Folder, 7}}), 0);
}

TEST_F(Texts, FindsWhatACodePageHoldsAndWhatAuthorsAreKept) {
  AddPost(1, Korean("한국 소식"), Korean("새로운 서비스"));
  db_.Sql("insert into TB_POST_DETAIL values(1, 'Ann Smith', '')");
  EXPECT_EQ(Found({.query = "서비 author:smith channel:one"}), Korean("한국 소식"));
  EXPECT_EQ(Found({.query = "서비 author:jones"}), "");
}

TEST_F(Texts, StopsAndFailsWithoutAnAnswer) {
  AddPost(1, "a", "word");
  std::stop_source stop;
  stop.request_stop();
  EXPECT_EQ(SearchTexts(db_.Get(), {.query = "word"}, stop.get_token()), std::nullopt);
  db_.Sql("drop table TB_SCRAP_POST");
  EXPECT_EQ(Found({.query = "word"}), "(failure)");
  EXPECT_FALSE(db_.Reports().empty());
}

}  // namespace
}  // namespace feedloom
