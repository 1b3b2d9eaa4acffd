// Keeps what the next statement is about to change, in the tables of share/undo.sql, and brings it
// back. One step is kept: the next one replaces it. Any thread may call these functions; each call
// opens and closes the database and reports its own failures (Store.h). A database without the
// tables is no failure.
#pragma once

#include <optional>

#include "store/RowKey.h"
#include "store/Rows.h"
#include "store/Store.h"

namespace feedloom {

struct KeptStep {
  int id = 0;
  int rows = 0;  // posts that will change; 1 for a row of the tree
};

// To be called just before the operation. nullopt when nothing will change, when the database keeps
// no steps, and after a failure: the operation may then still be run, but cannot be undone.

// For MarkRead (PostLists.h) with the same arguments.
std::optional<KeptStep> KeepMarks(Store& store, const RowKey& row, int status);
std::optional<KeptStep> KeepMarks(Store& store, const PostIds& posts, int status);
// For DeletePosts of PostLists.h.
std::optional<KeptStep> KeepPosts(Store& store, const PostIds& posts);
// For DeleteFolder, DeleteChannel or DeleteCabinet.
std::optional<KeptStep> KeepRow(Store& store, const RowKey& row);

struct Undone {
  enum class Result { kDone, kFailed, kNotKept };  // kNotKept: another step has replaced this one
  Result result = Result::kFailed;
  int rowId = 0;  // the number that the row of KeepRow has now
};

// Brings everything of the step back, in one transaction, and forgets it; after a failure nothing
// has changed. Rows come back with all their columns; one whose number was given to another row
// meanwhile gets a new one. A folder or cabinet goes into one of the same name, a channel into one
// of the same folder and address, and a post is left out when its channel holds its link. A channel
// whose folder is gone comes into the first folder; a post whose channel or cabinet is gone does
// not come back.
Undone UndoStep(Store& store, int stepId);

// Forgets the step that is kept, if any.
void ForgetUndoStep(Store& store);

}  // namespace feedloom
