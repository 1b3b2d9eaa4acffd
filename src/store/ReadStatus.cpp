#include "store/ReadStatus.h"

#include "store/Connection.h"
#include "store/IdStatement.h"
#include "store/SqlText.h"

namespace feedloom {
namespace {

constexpr const char* kMarkPosts = "Update TB_POST Set post_readStatus = %d";
constexpr const char* kMarkScrapPosts = "Update TB_SCRAP_POST Set scrap_post_readStatus = %d";

}  // namespace

bool MarkFoldersRead(Store& store, int status, std::span<const int> folderIds) {
  return ExecuteForIds(store,
                       FormatSql("Update TB_POST Set post_readStatus = %d Where post_channelID in "
                                 "(Select channel_id From TB_CHANNEL",
                                 status),
                       " channel_folderID  = %d", ")", folderIds);
}

bool MarkChannelsRead(Store& store, int status, std::span<const int> channelIds) {
  return ExecuteForIds(store, FormatSql(kMarkPosts, status), " post_channelID = %d", "",
                       channelIds);
}

bool MarkPostsRead(Store& store, int status, std::span<const int> postIds) {
  return ExecuteForIds(store, FormatSql(kMarkPosts, status), " post_id = %d", "", postIds);
}

bool MarkScrapPostsRead(Store& store, int status, std::span<const int> scrapPostIds) {
  return ExecuteForIds(store, FormatSql(kMarkScrapPosts, status), " scrap_post_id = %d", "",
                       scrapPostIds);
}

bool MarkCabinetsRead(Store& store, int status, std::span<const int> cabinetIds) {
  return ExecuteForIds(store, FormatSql(kMarkScrapPosts, status), " scrap_post_scrapChannelID = %d",
                       "", cabinetIds);
}

bool MarkAllScrapPostsRead(Store& store, int status) {
  return ExecuteOnce(store, FormatSql(kMarkScrapPosts, status));
}

}  // namespace feedloom
