// What the tree reads from the store. A failure is reported by the store itself.
#pragma once

#include <optional>

#include "ui/tree/GroupTreeModel.h"

namespace feedloom {

class Store;

// All rows; what the store cannot read is left out, and so is the cabinet root's name. Any thread.
TreeContent ReadTree(Store& store);
// The same without the folders.
TreeContent ReadTreeBelowFolders(Store& store);

// The stored channel; none when it is not there.
std::optional<ChannelRow> ReadChannel(Store& store, int channelId);

// Gives the stored folder its row, unless it has one.
void AppendMissingFolder(Store& store, int folderId, GroupTreeModel& model);

// Read the counts of all rows of their kind again: two statements, however many rows there are.
// After a failure the rows keep theirs.
void ReadChannelCounts(Store& store, GroupTreeModel& model);
void ReadCabinetCounts(Store& store, GroupTreeModel& model);

}  // namespace feedloom
