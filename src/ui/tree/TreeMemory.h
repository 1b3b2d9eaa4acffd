// What the tree remembers of itself. Interface thread only.
#pragma once

#include <QModelIndex>

#include "ui/ViewMemory.h"

namespace feedloom {

class CRSS_GroupTreeCtrl;
class GroupTreeModel;

// `tree` shows `model`.
TreeMemory ReadTreeMemory(const CRSS_GroupTreeCtrl& tree, const GroupTreeModel& model);

// The index of a row; an invalid one when it has none.
QModelIndex FindRow(const GroupTreeModel& model, const RowKey& key);
// The first folder with unread posts; an invalid index when there is none.
QModelIndex FindUnreadFolder(const GroupTreeModel& model);

}  // namespace feedloom
