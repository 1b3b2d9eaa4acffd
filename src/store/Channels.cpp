#include "store/Channels.h"

#include "store/Connection.h"
#include "store/SqlText.h"

namespace feedloom {
namespace {

std::string StateStatement(int channelId, int state) {
  return FormatSql("Update TB_CHANNEL Set channel_state = %d Where channel_id = %d", state,
                   channelId);
}

}  // namespace

bool LoadChannelList(Store& store, std::vector<ChannelRow>& out) {
  // SQLite reads "innjer" as an alias of the table before it, so this is an inner join.
  const auto table = QueryOnce(
      store,
      "Select channel_title, channel_xmllink, channel_id, channel_folderID, channel_order, "
      "ifnull(a_cnt,0) cnt, channel_state from TB_CHANNEL left join (select count(post_id) a_cnt, "
      "channel_id a_id from tb_channel innjer join tb_post on channel_id = post_channelID where "
      "post_readStatus = 0 group by channel_id) on channel_id = a_id order by channel_order");
  if (!table) return false;
  for (int row = 0; row < table->Rows(); ++row) {
    out.push_back({{.id = table->Int(row, 2),
                    .folderId = table->Int(row, 3),
                    .order = table->Int(row, 4),
                    .title = table->Text(row, 0),
                    .xmlLink = table->Text(row, 1)},
                   table->Int(row, 5),
                   table->Int(row, 6)});
  }
  return true;
}

bool FindChannelByXmlLink(Store& store, std::string_view xmlLink, int folderId, int& id,
                          int& order) {
  const auto table = QueryOnce(
      store, FormatSql("Select channel_id, channel_order from TB_CHANNEL Where channel_xmllink = "
                       "'%s' and channel_folderID = %d",
                       xmlLink, folderId));
  if (!table || table->Rows() == 0) return false;
  id = table->Int(table->Rows() - 1, 0);
  order = table->Int(table->Rows() - 1, 1);
  return true;
}

bool ChannelTitleExists(Store& store, std::string_view title, int folderId) {
  return HasRows(store,
                 FormatSql("Select channel_id from TB_CHANNEL Where channel_title = '%s' and "
                           "channel_folderID = %d",
                           title, folderId));
}

int GetChannelFolderId(Store& store, int channelId) {
  return QueryNumber(
      store, FormatSql("select channel_folderID from tb_channel where channel_id = %d", channelId),
      -1);
}

bool RenameChannel(Store& store, int channelId, std::string_view title) {
  return ExecuteOnce(
      store, FormatSql("Update TB_CHANNEL Set channel_title = '%s' Where channel_id = %d;", title,
                       channelId));
}

bool MoveChannel(Store& store, int channelId, int folderId) {
  return ExecuteOnce(store,
                     FormatSql("Update TB_CHANNEL Set channel_folderID = %d Where channel_id = %d",
                               folderId, channelId));
}

bool SetChannelAddress(Store& store, int channelId, std::string_view address) {
  return ExecuteOnce(store,
                     FormatSql("Update TB_CHANNEL Set channel_xmllink = '%s' Where channel_id = %d",
                               address, channelId));
}

std::string HomePageOf(Store& store, int channelId) {
  const auto table = QueryOnce(
      store, FormatSql("Select channel_htmllink From TB_CHANNEL Where channel_id = %d", channelId));
  return table && table->Rows() > 0 ? table->Text(0, 0) : std::string();
}

bool LoadChannelContents(Store& store, std::vector<ChannelContents>& out) {
  const auto table = QueryOnce(store,
                               "Select channel_id, channel_state, exists(Select 1 From TB_POST "
                               "Where post_channelID = channel_id) From TB_CHANNEL");
  if (!table) return false;
  for (int row = 0; row < table->Rows(); ++row) {
    out.push_back({table->Int(row, 0), table->Int(row, 1), table->Int(row, 2) != 0});
  }
  return true;
}

bool LoadChannelAddresses(Store& store, std::vector<Channel>& out) {
  const auto table =
      QueryOnce(store, "Select channel_id, channel_xmllink, channel_htmllink From TB_CHANNEL");
  if (!table) return false;
  for (int row = 0; row < table->Rows(); ++row) {
    out.push_back({.id = table->Int(row, 0),
                   .xmlLink = table->Text(row, 1),
                   .htmlLink = table->Text(row, 2)});
  }
  return true;
}

bool SetChannelState(Store& store, int channelId, int state) {
  return ExecuteOnce(store, StateStatement(channelId, state));
}

bool SetChannelState(Connection& connection, int channelId, int state) {
  const auto present = connection.Query(
      FormatSql("Select channel_state From TB_CHANNEL Where channel_id = %d", channelId));
  if (present && present->Rows() > 0 && present->Int(0, 0) == state) return true;
  return connection.Execute(StateStatement(channelId, state));
}

bool DeleteChannel(Store& store, int channelId) {
  return ExecuteEach(store,
                     {FormatSql("Delete From TB_CHANNEL where channel_id = %d", channelId),
                      FormatSql("Delete From TB_POST where post_channelID = %d", channelId)});
}

}  // namespace feedloom
