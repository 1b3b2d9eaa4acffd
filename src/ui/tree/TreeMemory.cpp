#include "ui/tree/TreeMemory.h"

#include "ui/tree/CRSS_GroupTreeCtrl.h"
#include "ui/tree/GroupTreeModel.h"

namespace feedloom {
namespace {

// The first group for which `isWanted` is true; an invalid index when there is none.
template <typename IsWanted>
QModelIndex FindGroup(const GroupTreeModel& model, IsWanted isWanted) {
  for (int row = 0; row < model.rowCount(); ++row) {
    if (const QModelIndex group = model.index(row, 0); isWanted(group)) return group;
  }
  return {};
}

}  // namespace

TreeMemory ReadTreeMemory(const CRSS_GroupTreeCtrl& tree, const GroupTreeModel& model) {
  TreeMemory memory{.selected = model.KeyOf(tree.SelectedRow())};
  for (int row = 0; row < model.rowCount(); ++row) {
    const QModelIndex group = model.index(row, 0);
    if (!tree.isExpanded(group)) memory.closed.push_back(*model.KeyOf(group));
  }
  return memory;
}

QModelIndex FindRow(const GroupTreeModel& model, const RowKey& key) {
  if (key.kind == RowKind::Channel) return model.FindChannel(key.id);
  const auto isRow = [&](const QModelIndex& row) { return model.KeyOf(row) == key; };
  if (IsGroup(key.kind)) return FindGroup(model, isRow);
  const QModelIndex root = FindRow(model, {RowKind::CabinetRoot});
  for (int row = 0; row < model.rowCount(root); ++row) {
    if (const QModelIndex cabinet = model.index(row, 0, root); isRow(cabinet)) return cabinet;
  }
  return {};
}

QModelIndex FindUnreadFolder(const GroupTreeModel& model) {
  return FindGroup(model, [&](const QModelIndex& row) {
    const GroupRow& group = *model.GroupAt(row);
    return group.kind == RowKind::Folder && group.unreadCount > 0;
  });
}

}  // namespace feedloom
