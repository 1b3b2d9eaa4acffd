#pragma once

#include <optional>

#include "store/RowKey.h"
#include "ui/PostList.h"

namespace feedloom {

class Store;

// Reads the posts of a row from the store, each with the id and title of its channel or cabinet.
// The cabinet root gives the posts of all cabinets. Returns nullopt without a row, and after a
// failure, which the store reports. Any thread.
std::optional<PostList> PostsOf(Store& store, const std::optional<RowKey>& row);

}  // namespace feedloom
