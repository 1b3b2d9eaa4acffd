#pragma once

#include <future>
#include <string>
#include <vector>

#include "platform/CodePage.h"
#include "ui/Settings.h"
#include "ui/tree/GroupTreeModel.h"

namespace feedloom {

// The content of the store that the frame shows at its start.
struct StartContent {
  int unread = 0;  // unread posts before old ones are deleted; -1 when they cannot be counted
  TreeContent tree;
  std::vector<std::string> failures;  // messages of the store, in its code page
};

// Counts the unread posts, then deletes old posts when `settings` want it, then reads the tree.
// Runs on two threads of its own, so that the pauses between the statements pass while the panes
// are built. `dbPath` is the database file, in the file system's own bytes. Until the result is
// taken, no other thread of the module may use the database. The future's destructor waits for the
// threads.
std::future<StartContent> ReadStart(std::string dbPath, CodePage codePage,
                                    const Settings& settings);

}  // namespace feedloom
