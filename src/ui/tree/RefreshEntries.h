// Makes the entries of the refresh queue from the tree's rows. Pure functions.
#pragma once

#include <vector>

#include "refresh/RefreshQueue.h"
#include "ui/tree/TreeRows.h"

namespace feedloom {

// One entry for each channel of all groups, or of one group, in the order of the rows. The cabinet
// root has no entries.
std::vector<RefreshEntry> RefreshEntriesOf(const GroupRows& groups);
std::vector<RefreshEntry> RefreshEntriesOf(const GroupRow& group);
// The entry of one channel. `folderId` is the id of its folder.
RefreshEntry RefreshEntryOf(const ChildRow& channel, int folderId);

}  // namespace feedloom
