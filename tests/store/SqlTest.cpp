// SQL: texts in statements, the statements, and how they run.
#include <gtest/gtest.h>

#include "store/Cabinets.h"
#include "store/Channels.h"
#include "store/Connection.h"
#include "store/Counts.h"
#include "store/Folders.h"
#include "store/Like.h"
#include "store/Posts.h"
#include "store/ReadStatus.h"
#include "store/SqlText.h"
#include "store/Store.h"
#include "store/StoreKit.h"

namespace feedloom {
namespace {

TEST(SqlText, EntitiesAreDecodedOneAfterTheOther) {
  const std::pair<std::string, std::string> cases[] = {
      {"&#38;#60;b&lt; &#62;&gt; &#38;#38;&amp; &#39;&apos; &#34;&quot;", "<b< >> && '' \"\""},
      {"&#38;#38;lt; &#38;#38;gt; &#38;#38;#62;", "&lt; &gt; &#62;"},
      {"&amp;lt; &amp;#62; &amp;#38;#60; &amp;#38;#38;", "&lt; &#62; &#38;#60; &#38;#38;"},
      {"&amp;#39; &amp;apos; &amp;#34; &amp;quot; &#38;#38;amp;quot;", "' ' \" \" \""},
      {"&amp;amp; &#60; &nbsp; &AMP; & &lt", "&amp; &#60; &nbsp; &AMP; & &lt"},
  };
  for (const auto& [text, decoded] : cases) EXPECT_EQ(UnescapeEntities(text), decoded);
}

TEST(SqlText, QuotesAreDoubledAfterDecodingAndFieldsFilledInOnce) {
  EXPECT_EQ(FormatSql("where a = %d and b = '%s'", 7, "100% '%d' &#39;blog&apos;"),
            "where a = 7 and b = '100% ''%d'' ''blog'''");
}

TEST(Like, TakesCharactersWholeAndFoldsAsciiOnly) {
  const auto like = [](const std::string& pattern, const std::string& text) {
    return LikeMatches(Korean(pattern), Korean(text), CodePage::Korean());
  };
  std::string wildcards = "b";
  for (int i = 0; i < 40; ++i) wildcards = "%a" + wildcards;
  EXPECT_TRUE(like("%news%", "Old NEWS today") && like("a%c_e", "abbc-c!e") &&
              like("a%bc", "abbc") && like("%%", "") && like("%글%", "한글") &&
              like("한_", "한글"));
  EXPECT_FALSE(like("%a", "") || like("", "a") || like("_", "") || like("abc", "ab") ||
               like("ab", "abc") || like("ac", "abc") || like("한__", "한글") ||
               like(wildcards, std::string(20'000, 'a')));
  // 똠 is 8C 63 in this code page, and 63 alone is the letter "c".
  EXPECT_FALSE(like("%c%", "똠") || LikeMatches("\x8C\x43", "\x8C\x63", CodePage::Korean()));
}

TEST(Statements, KeepTheirTexts) {
  TestStore db;
  Store& store = db.Get();
  std::vector<FolderRow> folders;
  std::vector<ChannelRow> channels;
  std::vector<CabinetRow> cabinets;
  const int ids[] = {1, 2};
  StatementLog log;
  EXPECT_TRUE(LoadFolderList(store, folders) && LoadChannelList(store, channels) &&
              LoadCabinetList(store, cabinets));
  EXPECT_TRUE(MarkPostsRead(store, 1, ids) && MarkFoldersRead(store, 0, ids) &&
              DeletePosts(store, ids) && DeleteOldPosts(store, 7));
  const std::vector<std::string> expected = {
      "select folder_name, folder_id, folder_order, ifnull(a_cnt,0) cnt from tb_folder left join "
      "(select count(post_id) a_cnt, channel_id a_id, channel_folderID a_fID from tb_channel left "
      "join tb_post on channel_id = post_channelID where post_readStatus = 0 group by "
      "channel_folderid) on folder_id = a_fID order by folder_order",
      "Select channel_title, channel_xmllink, channel_id, channel_folderID, channel_order, "
      "ifnull(a_cnt,0) cnt, channel_state from TB_CHANNEL left join (select count(post_id) a_cnt, "
      "channel_id a_id from tb_channel innjer join tb_post on channel_id = post_channelID where "
      "post_readStatus = 0 group by channel_id) on channel_id = a_id order by channel_order",
      "Select scrap_channel_id, scrap_channel_title, scrap_channel_order, ifnull(a_cnt,0) cnt "
      "from TB_SCRAP_CHANNEL left join (select count(scrap_post_id) a_cnt, scrap_channel_id a_id "
      "from tb_scrap_channel innjer join tb_scrap_post on scrap_channel_id = "
      "scrap_post_scrapChannelID where scrap_post_readStatus = 0 group by scrap_channel_id) on "
      "scrap_channel_id = a_id order by scrap_channel_order",
      "Update TB_POST Set post_readStatus = 1 Where post_id = 1 Or post_id = 2",
      "Update TB_POST Set post_readStatus = 0 Where post_channelID in (Select channel_id From "
      "TB_CHANNEL Where channel_folderID  = 1 Or channel_folderID  = 2)",
      "Delete From TB_POST Where post_id = 1 Or post_id = 2",
      "Delete From TB_POST where ABS(JULIANDAY('now') - JULIANDAY(post_createdate)) >= 7"};
  EXPECT_EQ(log.Take(), expected);
}

TEST(Statements, PauseBeforeAndAfterButNeverWaitForAnother) {
  TestStore db;
  Store& store = db.Get();
  EXPECT_EQ(CountUnreadPosts(store), 0);
  EXPECT_EQ(db.Clock().TimePaused(), std::chrono::milliseconds(20));
  store.EnterStoreBusy();
  EXPECT_EQ(CountUnreadPosts(store), 0);
  store.LeaveStoreBusy();
  EXPECT_EQ(db.Clock().PauseCount(), 4);
}

TEST(Statements, LeaveAJournalFileUntilTheirConnectionEnds) {
  TestStore db;
  {
    Connection connection(db.Get());
    connection.KeepJournalFile();
    EXPECT_TRUE(connection.Execute("Insert Into TB_POST(post_id) Values(1)"));
    EXPECT_EQ(db.Folder().Names(), (std::vector<std::string>{"rssdb", "rssdb-journal"}));
  }
  EXPECT_EQ(db.Folder().Names(), std::vector<std::string>{"rssdb"});
}

TEST(Store, TheDatabaseLiesBesideTheModule) {
  EXPECT_EQ(GetDbPath("C:\\Halvix\\feedloom.dll"), "C:\\Halvix\\rssdb");
  EXPECT_EQ(GetDbPath("/usr/lib/feedloom.so"), "/usr/lib/rssdb");
  EXPECT_EQ(GetDbPath("feedloom.so"), "rssdb");
  EXPECT_EQ(GetDbPath(""), "\\rssdb");
}

}  // namespace
}  // namespace feedloom
