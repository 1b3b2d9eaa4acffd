#pragma once

#include <optional>

#include "ui/PostList.h"

class QModelIndex;

namespace feedloom {

class GroupTreeModel;
class Store;

// The posts of a row, each with the id and title of its channel or cabinet; the cabinet root stands
// for all cabinets. None for an invalid index and after a failure, which the store has reported.
std::optional<PostList> PostsOf(Store& store, const GroupTreeModel& model, const QModelIndex& row);

}  // namespace feedloom
