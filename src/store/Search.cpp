#include "store/Search.h"

#include <fmt/ranges.h>

#include <string>

#include "store/Connection.h"
#include "store/PostColumns.h"
#include "store/SqlText.h"

#define POSTS "Select " POST_COLUMNS " From TB_POST Inner " JOIN_CHANNELS " Where "
#define OWNED_POSTS \
  "Select " POST_COLUMNS ", post_channelID From TB_POST Inner " JOIN_CHANNELS " Where "
#define NEWEST_FIRST " Order By post_pubDate desc, post_title asc"
#define SCRAP_POSTS \
  "Select " SCRAP_POST_COLUMNS " From TB_SCRAP_POST Inner " JOIN_CABINETS " Where "
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

std::string HasOneOf(std::span<const int> ids) {
  return fmt::format("post_id in ({})", fmt::join(ids, ","));
}

}  // namespace

bool SearchPosts(Store& store, std::string_view word, std::vector<PostRow>& out) {
  return AppendResult(store, FormatSql(POSTS "post_title like '%%%s%%'" NEWEST_FIRST, word),
                      kPostLayout, out);
}

bool SearchChannelPosts(Store& store, int channelId, std::string_view word,
                        std::vector<PostRow>& out) {
  return AppendResult(
      store,
      FormatSql(POSTS "post_channelID = %d and post_title like '%%%s%%'" NEWEST_FIRST, channelId,
                word),
      kPostLayout, out);
}

bool SearchFolderPosts(Store& store, int folderId, std::string_view word,
                       std::vector<PostRow>& out) {
  return AppendResult(
      store,
      FormatSql(POSTS "channel_folderID = %d and post_title like '%%%s%%'" NEWEST_FIRST, folderId,
                word),
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
  return AppendResult(store,
                      FormatSql(OWNED_POSTS "date(post_pubDate) = date('%s') and post_readStatus = "
                                            "0" NEWEST_FIRST,
                                Today(store)),
                      kOwnedPostLayout, out);
}

bool LoadFolderTodayUnread(Store& store, int folderId, std::vector<PostRow>& out) {
  return AppendResult(
      store,
      FormatSql(OWNED_POSTS "channel_folderID = %d and date(post_pubDate) = date('%s') and "
                            "post_readStatus = 0" NEWEST_FIRST,
                folderId, Today(store)),
      kOwnedPostLayout, out);
}

bool LoadPostsWithIds(Store& store, std::span<const int> ids, std::vector<PostRow>& out) {
  return AppendResult(store, OWNED_POSTS + HasOneOf(ids) + NEWEST_FIRST, kOwnedPostLayout, out);
}

bool FindUnreadPosts(Store& store, std::span<const int> ids, std::vector<PostRow>& out) {
  const auto table = QueryOnce(
      store,
      "Select post_id, post_channelID, channel_title, post_title From TB_POST Inner " JOIN_CHANNELS
      " Where post_readStatus = 0 and " +
          HasOneOf(ids) + NEWEST_FIRST);
  for (int row = 0; table && row < table->Rows(); ++row) {
    PostRow& post = out.emplace_back();
    post.id = table->Int(row, 0);
    post.ownerId = table->Int(row, 1);
    post.ownerTitle = table->Text(row, 2);
    post.title = table->Text(row, 3);
  }
  return table.has_value();
}

}  // namespace feedloom
