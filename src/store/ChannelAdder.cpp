#include "store/ChannelAdder.h"

#include <algorithm>
#include <unordered_set>

#include "store/Connection.h"
#include "store/SqlText.h"

namespace feedloom {

bool ChannelAdder::Add(std::span<ChannelRecord> records) {
  const std::string rows = NewRows(records);
  const int lastBefore = lastId_;
  if (!rows.empty()) {
    const std::string insert =
        "Insert Into TB_CHANNEL(channel_title, channel_type, channel_xmllink, channel_htmllink, "
        "channel_folderID, channel_order) values ";
    if (!connection_.Execute(insert + rows) || !Load()) return false;
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
    rows.append(rows.empty() ? "" : ", ")
        .append(FormatSql("('%s', '%s', '%s', '%s', %d, %d)", record.title, record.type,
                          record.xmlLink, record.htmlLink, folderId_, order_));
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
