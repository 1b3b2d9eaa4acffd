#pragma once

#include <span>
#include <string>
#include <unordered_map>

#include "store/Rows.h"

namespace feedloom {

class Connection;

// Adds many channels to one folder, in two statements however many they are: each commit of its own
// would wait for the disk. One object serves one thread.
class ChannelAdder {
 public:
  // `connection` outlives the object.
  ChannelAdder(Connection& connection, int folderId)
      : connection_(connection), folderId_(folderId) {}

  // Learns what the folder holds that is not known yet: before the first Add, which itself learns
  // what it has added. False after a failure.
  bool Load();

  // Adds `records` as AddChannelRecord does one by one, with negative orders, but all or none;
  // false after a failure, which leaves the records unchanged. Of those with one address the first
  // is added. What others do to the folder meanwhile is not seen.
  bool Add(std::span<ChannelRecord> records);

 private:
  std::string NewRows(std::span<const ChannelRecord> records) const;

  Connection& connection_;
  const int folderId_;
  std::unordered_map<std::string, int> ids_;  // by address, as it is stored
  int lastId_ = 0;
  int order_ = 0;  // the highest one, which newcomers share
};

}  // namespace feedloom
