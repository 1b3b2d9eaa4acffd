#include "store/Cabinets.h"

#include "store/Connection.h"
#include "store/SqlText.h"

namespace feedloom {
namespace {

std::string CopyStatement(int cabinetId, std::string_view title, std::string_view link,
                          std::string_view published, std::string_view description) {
  return FormatSql(
      "insert into TB_SCRAP_POST(scrap_post_scrapChannelID, scrap_post_title, "
      "scrap_post_link, scrap_post_pubDate, scrap_post_desc, scrap_post_readStatus) "
      "Values(%d, '%s', '%s', '%s', '%s', 0);",
      cabinetId, title, link, published, description);
}

}  // namespace

bool LoadCabinetList(Store& store, std::vector<CabinetRow>& out) {
  // SQLite reads "innjer" as an alias of the table before it, so this is an inner join.
  const auto table = QueryOnce(
      store,
      "Select scrap_channel_id, scrap_channel_title, scrap_channel_order, ifnull(a_cnt,0) cnt from "
      "TB_SCRAP_CHANNEL left join (select count(scrap_post_id) a_cnt, scrap_channel_id a_id from "
      "tb_scrap_channel innjer join tb_scrap_post on scrap_channel_id = scrap_post_scrapChannelID "
      "where scrap_post_readStatus = 0 group by scrap_channel_id) on scrap_channel_id = a_id order "
      "by scrap_channel_order");
  if (!table) return false;
  for (int row = 0; row < table->Rows(); ++row) {
    out.push_back(
        {table->Int(row, 0), table->Text(row, 1), table->Int(row, 2), table->Int(row, 3)});
  }
  return true;
}

bool CabinetTitleExists(Store& store, std::string_view title) {
  return HasRows(
      store,
      FormatSql("Select scrap_channel_id from TB_SCRAP_CHANNEL Where scrap_channel_title = '%s'",
                title));
}

bool ScrapPostLinkExists(Store& store, int cabinetId, std::string_view link) {
  return HasRows(
      store, FormatSql("Select scrap_post_id from TB_SCRAP_POST Where scrap_post_scrapChannelID = "
                       "%d and scrap_post_link = '%s'",
                       cabinetId, link));
}

int AddCabinet(Store& store, std::string_view title, int order) {
  if (CabinetTitleExists(store, title)) return 0;
  return QueryNumber(store,
                     FormatSql("insert into TB_SCRAP_CHANNEL(scrap_channel_title, "
                               "scrap_channel_order) values('%s', %d);select last_insert_rowid()",
                               title, order),
                     -1);
}

bool RenameCabinet(Store& store, int cabinetId, std::string_view title) {
  return ExecuteOnce(store,
                     FormatSql("Update TB_SCRAP_CHANNEL Set scrap_channel_title = '%s' Where "
                               "scrap_channel_id = %d;",
                               title, cabinetId));
}

bool DeleteCabinet(Store& store, int cabinetId) {
  return ExecuteEach(
      store,
      {FormatSql("Delete From TB_SCRAP_CHANNEL where scrap_channel_id = %d", cabinetId),
       FormatSql("Delete From TB_SCRAP_POST where scrap_post_scrapChannelID = %d", cabinetId)});
}

int InsertScrapPost(Store& store, int cabinetId, std::string_view title, std::string_view link,
                    std::string_view published, std::string_view description) {
  return QueryNumber(
      store,
      CopyStatement(cabinetId, title, link, published, description) + "select last_insert_rowid()",
      -1);
}

std::optional<int> InsertScrapPosts(Store& store, int cabinetId, std::span<const PostRow> posts) {
  Connection connection(store);
  if (!connection) return 0;
  const Connection::Operation operation(connection);
  const auto cabinet = connection.Query(
      FormatSql("Select 1 From TB_SCRAP_CHANNEL Where scrap_channel_id = %d", cabinetId));
  if (!cabinet) return 0;
  if (cabinet->Rows() == 0) return std::nullopt;
  std::vector<std::string> copies;
  for (const PostRow& post : posts) {
    copies.push_back(
        CopyStatement(cabinetId, post.title, post.link, post.published, post.description));
  }
  return connection.ExecuteTogether(copies).rows;
}

}  // namespace feedloom
