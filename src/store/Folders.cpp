#include "store/Folders.h"

#include "store/Connection.h"
#include "store/SqlText.h"

namespace feedloom {

bool LoadFolderList(Store& store, std::vector<FolderRow>& out) {
  const auto table = QueryOnce(
      store,
      "select folder_name, folder_id, folder_order, ifnull(a_cnt,0) cnt from tb_folder left join "
      "(select count(post_id) a_cnt, channel_id a_id, channel_folderID a_fID from tb_channel left "
      "join tb_post on channel_id = post_channelID where post_readStatus = 0 group by "
      "channel_folderid) on folder_id = a_fID order by folder_order");
  if (!table) return false;
  for (int row = 0; row < table->Rows(); ++row) {
    out.push_back(
        {table->Text(row, 0), table->Int(row, 1), table->Int(row, 2), table->Int(row, 3)});
  }
  return true;
}

bool FindFolderByName(Store& store, std::string_view name, int& id, int& order) {
  const auto table = QueryOnce(
      store,
      FormatSql("Select folder_id, folder_order from TB_FOLDER Where folder_name = '%s'", name));
  if (!table || table->Rows() == 0) return false;
  id = table->Int(table->Rows() - 1, 0);
  order = table->Int(table->Rows() - 1, 1);
  return true;
}

bool FolderNameExists(Store& store, std::string_view name) {
  return HasRows(store,
                 FormatSql("Select folder_id from TB_FOLDER Where folder_name = '%s'", name));
}

int GetMaxOrder(Store& store, bool isFolder, int folderId) {
  Connection connection(store);
  const auto highest = isFolder ? QueryNumber(connection, "Select Max(folder_order) From TB_FOLDER")
                                : HighestOrder(connection, folderId);
  return highest.value_or(-2);
}

std::optional<int> HighestOrder(Connection& connection, int folderId) {
  return QueryNumber(connection,
                     FormatSql("Select Max(channel_order) From TB_CHANNEL Where channel_folderID = "
                               "%d Group By channel_folderID",
                               folderId));
}

int AddFolder(Store& store, std::string_view name, int order) {
  if (FolderNameExists(store, name)) return 0;
  return QueryNumber(store,
                     FormatSql("insert into TB_FOLDER(folder_name, folder_order) values('%s', %d)"
                               ";select last_insert_rowid()",
                               name, order),
                     -1);
}

int AppendFolder(Store& store, std::string_view name, int& order) {
  order = GetMaxOrder(store, true, 0) + 1;
  return order >= 0 ? AddFolder(store, name, order) : -1;
}

bool RenameFolder(Store& store, int folderId, std::string_view name) {
  return ExecuteOnce(
      store,
      FormatSql("Update TB_FOLDER Set folder_name = '%s' Where folder_id = %d;", name, folderId));
}

bool SetFolderOrder(Store& store, int folderId, int order) {
  return ExecuteOnce(
      store,
      FormatSql("Update TB_FOLDER Set folder_order = %d Where folder_id = %d;", order, folderId));
}

bool DeleteFolder(Store& store, int folderId) {
  // The posts are deleted before the channels, because the channels tell which posts to delete.
  return ExecuteEach(
      store, {FormatSql("Delete From TB_FOLDER Where folder_id = %d", folderId),
              FormatSql("Delete From TB_POST Where post_channelID In (Select channel_id From "
                        "TB_CHANNEL Where channel_folderID = %d)",
                        folderId),
              FormatSql("Delete From TB_CHANNEL Where channel_folderID = %d", folderId)});
}

}  // namespace feedloom
