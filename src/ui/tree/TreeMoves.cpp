#include "ui/tree/TreeMoves.h"

#include <algorithm>

namespace feedloom {
namespace {

int RowOf(const GroupRows& groups, int folderId) {
  const auto found = std::ranges::find_if(groups, [&](const auto& group) {
    return group->kind == RowKind::Folder && group->id == folderId;
  });
  return found == groups.end() ? -1 : static_cast<int>(found - groups.begin());
}

const GroupRow& At(const GroupRows& groups, int row) {
  return *groups[static_cast<std::size_t>(row)];
}

// Protected folders stand first, and the cabinet root last.
bool IsPlaceOfFolder(const GroupRows& groups, int row) {
  const auto isProtected = [](const auto& group) { return group->order < 0; };
  const auto first = static_cast<int>(std::ranges::count_if(groups, isProtected));
  return row >= first && row < static_cast<int>(groups.size()) - 1;
}

std::optional<RowPlace> FolderPlace(const GroupRows& groups, const RowPlace& from, int row,
                                    const QModelIndex& parent) {
  int place = parent.isValid() ? parent.row() : row < 0 ? static_cast<int>(groups.size()) - 1 : row;
  if (!parent.isValid() && place > from.row) --place;
  place = std::min(place, static_cast<int>(groups.size()) - 2);
  if (!IsPlaceOfFolder(groups, place)) return std::nullopt;
  return RowPlace{0, place};
}

// A drop between two folders, or on one, is one at the end of the folder.
std::optional<RowPlace> ChannelPlace(const GroupRows& groups, const RowKey& channel,
                                     const RowPlace& from, int row, const QModelIndex& parent) {
  const bool isBetween = !parent.isValid();
  const int group = isBetween ? row - 1 : parent.row();
  if (group < 0 || group >= static_cast<int>(groups.size())) return std::nullopt;
  const GroupRow& folder = At(groups, group);
  if (folder.kind != RowKind::Folder) return std::nullopt;
  const auto count = static_cast<int>(
      std::ranges::count_if(folder.children, [&](auto& child) { return child.id != channel.id; }));
  if (isBetween || row < 0) return RowPlace{folder.id, count};
  const bool isBelowItself = from.folderId == folder.id && row > from.row;
  return RowPlace{folder.id, isBelowItself ? row - 1 : row};
}

}  // namespace

std::optional<RowPlace> PlaceOf(const GroupRows& groups, const RowKey& row) {
  if (row.kind == RowKind::Folder) {
    const int place = RowOf(groups, row.id);
    if (place < 0 || !IsMovable(At(groups, place))) return std::nullopt;
    return RowPlace{0, place};
  }
  if (row.kind != RowKind::Channel) return std::nullopt;
  for (const auto& group : groups) {
    const auto child = std::ranges::find(group->children, row.id, &ChildRow::id);
    if (group->kind != RowKind::Folder || child == group->children.end()) continue;
    return RowPlace{group->id, static_cast<int>(child - group->children.begin())};
  }
  return std::nullopt;
}

std::optional<RowPlace> StepFrom(const GroupRows& groups, const RowKey& row, int steps) {
  auto place = PlaceOf(groups, row);
  if (!place) return std::nullopt;
  place->row += steps;
  const bool isThere =
      row.kind == RowKind::Folder
          ? IsPlaceOfFolder(groups, place->row)
          : place->row >= 0 &&
                place->row <
                    static_cast<int>(At(groups, RowOf(groups, place->folderId)).children.size());
  return isThere ? place : std::nullopt;
}

std::optional<RowPlace> PlaceOfDrop(const GroupRows& groups, const RowKey& moved, int row,
                                    const QModelIndex& parent) {
  const auto from = PlaceOf(groups, moved);
  if (!from) return std::nullopt;
  return moved.kind == RowKind::Folder ? FolderPlace(groups, *from, row, parent)
                                       : ChannelPlace(groups, moved, *from, row, parent);
}

std::vector<int> IdsWith(const GroupRows& groups, const RowKey& moved, const RowPlace& place) {
  std::vector<int> ids;
  if (moved.kind == RowKind::Channel) {
    for (const ChildRow& child : At(groups, RowOf(groups, place.folderId)).children) {
      if (child.id != moved.id) ids.push_back(child.id);
    }
    ids.insert(ids.begin() + place.row, moved.id);
    return ids;
  }
  for (const auto& group : groups) {
    if (group->id != moved.id || group->kind != RowKind::Folder) ids.push_back(group->id);
  }
  ids.insert(ids.begin() + place.row, moved.id);
  std::erase_if(ids, [&](int id) {
    const int row = RowOf(groups, id);
    return row < 0 || !IsMovable(At(groups, row));
  });
  return ids;
}

}  // namespace feedloom
