#pragma once

#include <optional>

#include "ui/PostList.h"

class QModelIndex;

namespace feedloom {

class GroupTreeModel;
class Store;

// Reads the posts of a row from the store, each with the id and title of its channel or cabinet.
// The cabinet root gives the posts of all cabinets. Returns nullopt for an invalid index, and after
// a failure, which the store reports. Interface thread only.
std::optional<PostList> PostsOf(Store& store, const GroupTreeModel& model, const QModelIndex& row);

}  // namespace feedloom
