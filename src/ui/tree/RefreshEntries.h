// What is queued for a refresh of the tree's channels. Pure.
#pragma once

#include <vector>

#include "ingest/RefreshQueue.h"
#include "ui/tree/TreeRows.h"

namespace feedloom {

// One entry a channel, in the order of the rows; none for the cabinet root.
std::vector<RefreshEntry> RefreshEntriesOf(const GroupRows& groups);
std::vector<RefreshEntry> RefreshEntriesOf(const GroupRow& group);
RefreshEntry RefreshEntryOf(const ChildRow& channel, int folderId);

}  // namespace feedloom
