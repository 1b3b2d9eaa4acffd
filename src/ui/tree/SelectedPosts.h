#pragma once

#include "ui/Frame.h"
#include "ui/tree/TreeRows.h"

namespace feedloom {

// Fills `list` with the posts of a row, each with the id and title of its channel or cabinet. `id`
// is the record's; for the cabinet root, which stands for all cabinets, it is not looked at. False
// after a failure, which the store has reported; the list is then not complete.
bool LoadSelectedPosts(Store& store, RowKind kind, int id, PostList& list);

}  // namespace feedloom
