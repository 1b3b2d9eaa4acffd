#include "store/Search.h"

#include <string>

#include "store/Connection.h"
#include "store/PostColumns.h"
#include "store/SqlText.h"

// Parts that the statements below share. They are macros, because only literals are joined by the
// compiler.
#define POST_COLUMNS                                                         \
  "Select post_readStatus, post_id, post_createDate, post_desc, post_link, " \
  "post_pubDate, post_title, post_updateDate, channel_title, post_ispodcast"
#define FROM_POSTS                                                   \
  " From TB_POST Inner Join TB_CHANNEL On TB_POST.post_channelID = " \
  "TB_CHANNEL.channel_id Where "
#define NEWEST_FIRST " Order By post_pubDate desc, post_title asc"

#define SCRAP_POSTS                                                           \
  "Select scrap_post_readStatus, scrap_post_id, scrap_post_createDate, "      \
  "scrap_post_desc, scrap_post_link, scrap_post_pubDate, scrap_post_title, "  \
  "scrap_post_updateDate, scrap_channel_title From TB_SCRAP_POST Inner Join " \
  "TB_SCRAP_CHANNEL On TB_SCRAP_POST.scrap_post_scrapChannelID = "            \
  "TB_SCRAP_CHANNEL.scrap_channel_id Where "
#define NEWEST_SCRAP_FIRST " Order By scrap_post_pubDate desc, scrap_post_title asc"

namespace feedloom {
namespace {

bool AppendResult(Store& store, const std::string& sql, const PostLayout& layout,
                  std::vector<PostRow>& out) {
  const auto table = QueryOnce(store, sql);
  if (table) AppendPosts(*table, layout, out);
  return table.has_value();
}

constexpr PostLayout kPostLayout{.podcast = 9};
constexpr PostLayout kOwnedPostLayout{.podcast = 9, .ownerId = 10};

std::string Today(const Store& store) {
  return FormatLocalTime(store.GetClock().Now(), "%Y-%m-%d");
}

}  // namespace

bool SearchPosts(Store& store, std::string_view word, std::vector<PostRow>& out) {
  return AppendResult(
      store, FormatSql(POST_COLUMNS FROM_POSTS "post_title like '%%%s%%'" NEWEST_FIRST, word),
      kPostLayout, out);
}

bool SearchChannelPosts(Store& store, int channelId, std::string_view word,
                        std::vector<PostRow>& out) {
  return AppendResult(store,
                      FormatSql(POST_COLUMNS FROM_POSTS
                                "post_channelID = %d and post_title like '%%%s%%'" NEWEST_FIRST,
                                channelId, word),
                      kPostLayout, out);
}

bool SearchFolderPosts(Store& store, int folderId, std::string_view word,
                       std::vector<PostRow>& out) {
  return AppendResult(store,
                      FormatSql(POST_COLUMNS FROM_POSTS
                                "channel_folderID = %d and post_title like '%%%s%%'" NEWEST_FIRST,
                                folderId, word),
                      kPostLayout, out);
}

bool SearchCabinetPosts(Store& store, int cabinetId, std::string_view word,
                        std::vector<PostRow>& out) {
  return AppendResult(
      store,
      FormatSql(SCRAP_POSTS "scrap_post_scrapChannelID = %d and scrap_post_title like "
                            "'%%%s%%'" NEWEST_SCRAP_FIRST,
                cabinetId, word),
      {}, out);
}

bool SearchScrapPosts(Store& store, std::string_view word, std::vector<PostRow>& out) {
  return AppendResult(
      store, FormatSql(SCRAP_POSTS "scrap_post_title like '%%%s%%'" NEWEST_SCRAP_FIRST, word), {},
      out);
}

bool LoadTodayUnread(Store& store, std::vector<PostRow>& out) {
  return AppendResult(
      store,
      FormatSql(POST_COLUMNS ", post_channelID" FROM_POSTS
                             "date(post_pubDate) = date('%s') and post_readStatus = "
                             "0" NEWEST_FIRST,
                Today(store)),
      kOwnedPostLayout, out);
}

bool LoadFolderTodayUnread(Store& store, int folderId, std::vector<PostRow>& out) {
  return AppendResult(
      store,
      FormatSql(POST_COLUMNS ", post_channelID" FROM_POSTS
                             "channel_folderID = %d and date(post_pubDate) = date('%s') and "
                             "post_readStatus = 0" NEWEST_FIRST,
                folderId, Today(store)),
      kOwnedPostLayout, out);
}

}  // namespace feedloom
