// Reads the tree from the store. The store reports each failure. Interface thread unless stated.
#pragma once

#include <optional>

#include "ui/tree/GroupTreeModel.h"

namespace feedloom {

class Store;

// All rows; nullopt when the store cannot read all of them. cabinetTitle stays empty. Any thread.
std::optional<TreeContent> ReadTree(Store& store);
// Reads into `content` all rows except the folders. False when the store cannot read some. Any
// thread.
bool ReadTreeWithoutFolders(Store& store, TreeContent& content);

// A stored channel; nullopt when there is none or the store cannot read it.
std::optional<ChannelRow> ReadChannel(Store& store, int channelId);

// Appends a stored folder to `model`, unless it has a row.
void AppendMissingFolder(Store& store, int folderId, GroupTreeModel& model);

// Read the counts of all folders and channels, or of all cabinets, by two SQL statements. After a
// failure the rows keep their counts.
void ReadChannelCounts(Store& store, GroupTreeModel& model);
void ReadCabinetCounts(Store& store, GroupTreeModel& model);

}  // namespace feedloom
