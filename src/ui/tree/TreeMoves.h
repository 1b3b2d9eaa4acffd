// Where rows of the tree can be moved to. Pure functions over the rows.
#pragma once

#include <QModelIndex>
#include <optional>
#include <vector>

#include "ui/tree/TreeRows.h"

namespace feedloom {

// The place of a channel: the folder, and how many channels stand before it. Of a folder: 0, and
// how many groups stand before it. The moved row itself does not count.
struct RowPlace {
  int folderId = 0;
  int row = 0;

  bool operator==(const RowPlace&) const = default;
};

// Where the row stands now; nullopt for one that is missing or cannot be moved: cabinets, the
// cabinet root, and a folder that is protected.
std::optional<RowPlace> PlaceOf(const GroupRows& groups, const RowKey& row);

// The place `steps` further down, among the rows of the same folder, or the groups; nullopt when
// there is none.
std::optional<RowPlace> StepFrom(const GroupRows& groups, const RowKey& row, int steps);

// The place that a drop means, as the toolkit tells it: before the row `row` of `parent`, or on
// `parent` when `row` is negative. nullopt where the row cannot stand.
std::optional<RowPlace> PlaceOfDrop(const GroupRows& groups, const RowKey& moved, int row,
                                    const QModelIndex& parent);

// The ids of the rows there, in their order, when the row has come to `place`; protected folders
// are left out.
std::vector<int> IdsWith(const GroupRows& groups, const RowKey& moved, const RowPlace& place);

}  // namespace feedloom
