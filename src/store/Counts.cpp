#include "store/Counts.h"

#include <fmt/format.h>

#include "store/Connection.h"
#include "store/SqlText.h"

namespace feedloom {

int CountUnreadPosts(Store& store) {
  return QueryNumber(store, "select count(post_id) a_cnt from tb_post where post_readStatus = 0",
                     -1);
}

int CountUnreadInFolder(Store& store, int folderId, bool isCabinetGroup) {
  if (isCabinetGroup) {
    return QueryNumber(store,
                       "select count(scrap_post_id) a_cnt from tb_scrap_channel left join "
                       "tb_scrap_post on scrap_channel_id = scrap_post_scrapChannelID where "
                       "scrap_post_readStatus = 0",
                       -1);
  }
  return QueryNumber(
      store,
      FormatSql("select count(post_id) a_cnt from tb_channel left join tb_post on channel_id = "
                "post_channelID where post_readStatus = 0 and channel_folderID = %d group by "
                "channel_folderID",
                folderId),
      -1);
}

int CountUnreadInItem(Store& store, int id, bool isCabinet) {
  const char* statement =
      isCabinet
          ? "select count(scrap_post_id) a_cnt from tb_scrap_channel left join tb_scrap_post "
            "on scrap_channel_id = scrap_post_scrapChannelID where scrap_post_readStatus = 0 "
            "and scrap_channel_id = %d group by scrap_channel_id"
          : "select count(post_id) a_cnt from tb_channel left join tb_post on channel_id = "
            "post_channelID where post_readStatus = 0 and channel_id = %d group by channel_id";
  Connection connection(store);
  // The connection has reported it before: this count reports it twice (Counts.h).
  if (!connection) store.ReportStoreError("Can't open database");
  return QueryNumber(connection, FormatSql(statement, id)).value_or(-1);
}

std::optional<ChannelCounts> CountUnreadInChannels(Store& store, std::span<const int> channelIds) {
  if (channelIds.size() == 1) {
    const int count = CountUnreadInItem(store, channelIds[0], false);
    return count < 0 ? std::nullopt : std::optional(ChannelCounts{{channelIds[0], count}});
  }
  const auto table = QueryOnce(
      store,
      fmt::format("select channel_id, count(post_id) a_cnt from tb_channel left join tb_post "
                  "on channel_id = post_channelID and post_readStatus = 0 where channel_id "
                  "in ({}) group by channel_id",
                  fmt::join(channelIds, ",")));
  if (!table) return std::nullopt;
  ChannelCounts counts;
  for (int row = 0; row < table->Rows(); ++row) counts[table->Int(row, 0)] = table->Int(row, 1);
  return counts;
}

}  // namespace feedloom
