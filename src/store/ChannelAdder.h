// The rule of adding channels: a folder holds each feed address once. Texts are in the module's
// code page. Failures are reported (Store.h).
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <unordered_map>

#include "store/Rows.h"
#include "store/Store.h"

namespace feedloom {

class Connection;

// Adds `record` as a channel, unless its folder holds a channel with this feed address already.
// Sets the record's `id` in both cases; for a new channel also `order` and `newlyInserted`. A
// negative order stands for the folder's highest order, which the new channel then shares. Returns
// false after a failure; the record is unchanged then. Any thread.
bool AddChannelRecord(Connection& connection, ChannelRecord& record);

// Adds `record` as AddChannelRecord does, through a connection of its own and with the order behind
// the folder's highest.
bool AppendChannelRecord(Store& store, ChannelRecord& record);

// The row that LoadChannelList would give for a channel that was just added: texts with entities
// decoded, as they are stored, and no unread posts. Pure.
ChannelRow StoredRow(const ChannelRecord& record);

// Adds a channel even when the folder holds its address already. Returns the new channel's id, -1
// after a failure.
int InsertChannel(Store& store, std::string_view title, std::string_view xmlLink,
                  std::string_view htmlLink, int folderId, int order);

// Adds many channels to one folder with two statements a batch: one statement for each channel
// would wait for the disk each time. An object belongs to one thread.
class ChannelAdder {
 public:
  // `connection` must outlive the object.
  ChannelAdder(Connection& connection, int folderId)
      : connection_(connection), folderId_(folderId) {}

  // Reads the folder's channels that are not known yet. To be called before the first Add, which
  // calls it for the channels that it has added. Returns false after a failure.
  bool Load();

  // Adds `records` to the folder and fills them in, as AddChannelRecord does one by one for records
  // with negative orders, but all of them or none. Of several records with the same address the
  // first is added. Returns false after a failure; the records are unchanged then. Channels that
  // others have added to the folder since the last Load are not seen.
  bool Add(std::span<ChannelRecord> records);

 private:
  std::string NewRows(std::span<const ChannelRecord> records) const;

  Connection& connection_;
  const int folderId_;
  std::unordered_map<std::string, int> ids_;  // of channels, by their stored address
  int lastId_ = 0;
  int order_ = 0;  // the folder's highest; new channels get it
};

}  // namespace feedloom
