#include "store/ChannelAdder.h"

#include <algorithm>
#include <unordered_set>

#include "store/Connection.h"
#include "store/Folders.h"
#include "store/SqlText.h"

namespace feedloom {
namespace {

constexpr std::string_view kInsert =
    "Insert Into TB_CHANNEL(channel_title, channel_type, channel_xmllink, channel_htmllink, "
    "channel_folderID, channel_order) values ";

std::string ValuesOf(const ChannelRecord& record, int folderId, int order) {
  return FormatSql("('%s', '%s', '%s', '%s', %d, %d)", record.title, record.type, record.xmlLink,
                   record.htmlLink, folderId, order);
}

}  // namespace

bool AddChannelRecord(Connection& connection, ChannelRecord& record) {
  const std::optional<int> order =
      record.order < 0 ? HighestOrder(connection, record.folderId) : record.order;
  if (!order) return false;
  const auto present = connection.Query(FormatSql(
      "Select channel_id From TB_CHANNEL Where channel_xmllink = '%s' and channel_folderID = %d",
      record.xmlLink, record.folderId));
  if (!present) return false;
  if (present->Rows() > 0) {
    record.id = present->Int(0, 0);
    return true;
  }
  const auto id = QueryNumber(connection, std::string(kInsert)
                                              .append(ValuesOf(record, record.folderId, *order))
                                              .append(";select last_insert_rowid()"));
  if (!id) return false;
  record.id = *id;
  record.order = *order;
  record.newlyInserted = true;
  return true;
}

bool AppendChannelRecord(Store& store, ChannelRecord& record) {
  record.order = GetMaxOrder(store, false, record.folderId) + 1;
  Connection connection(store);
  return connection && AddChannelRecord(connection, record);
}

ChannelRow StoredRow(const ChannelRecord& record) {
  return {{.id = record.id,
           .folderId = record.folderId,
           .order = record.order,
           .title = UnescapeEntities(record.title),
           .xmlLink = UnescapeEntities(record.xmlLink)}};
}

int InsertChannel(Store& store, std::string_view title, std::string_view xmlLink,
                  std::string_view htmlLink, int folderId, int order) {
  return QueryNumber(
      store,
      FormatSql("insert into TB_CHANNEL(channel_title, channel_xmllink, channel_htmllink, "
                "channel_folderID, channel_order) values('%s', '%s', '%s', %d, %d)"
                ";select last_insert_rowid()",
                title, xmlLink, htmlLink, folderId, order),
      -1);
}

bool ChannelAdder::Add(std::span<ChannelRecord> records) {
  const std::string rows = NewRows(records);
  const int lastBefore = lastId_;
  if (!rows.empty()) {
    if (!connection_.Execute(std::string(kInsert) + rows) || !Load()) return false;
  }
  std::unordered_set<int> seen;
  for (ChannelRecord& record : records) {
    record.folderId = folderId_;
    record.id = ids_[UnescapeEntities(record.xmlLink)];
    record.newlyInserted = record.id > lastBefore && seen.insert(record.id).second;
    if (record.newlyInserted) record.order = order_;
  }
  return true;
}

// The values to insert: one row for each address that the folder does not hold. Empty without one.
std::string ChannelAdder::NewRows(std::span<const ChannelRecord> records) const {
  std::unordered_set<std::string> added;
  std::string rows;
  for (const ChannelRecord& record : records) {
    const std::string address = UnescapeEntities(record.xmlLink);
    if (ids_.contains(address) || !added.insert(address).second) continue;
    rows.append(rows.empty() ? "" : ", ").append(ValuesOf(record, folderId_, order_));
  }
  return rows;
}

// SQLite gives a new row a higher id than all others, so what is not known lies above `lastId_`.
bool ChannelAdder::Load() {
  const auto table = connection_.Query(
      FormatSql("Select channel_xmllink, channel_id, channel_order From TB_CHANNEL Where "
                "channel_folderID = %d and channel_id > %d",
                folderId_, lastId_));
  if (!table) return false;
  for (int row = 0; row < table->Rows(); ++row) {
    const int id = table->Int(row, 1);
    const int order = table->Int(row, 2);
    order_ = ids_.empty() ? order : std::max(order_, order);
    lastId_ = std::max(lastId_, id);
    ids_.emplace(table->Text(row, 0), id);
  }
  return true;
}

}  // namespace feedloom
