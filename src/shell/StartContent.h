#pragma once

#include <future>
#include <string>
#include <vector>

#include "platform/CodePage.h"
#include "ui/Settings.h"
#include "ui/tree/GroupTreeModel.h"

namespace feedloom {

// What the frame reads from the store when it is made.
struct StartContent {
  int unread = 0;  // posts, before the clean-up; -1 when they cannot be counted
  TreeContent tree;
  std::vector<std::string> failures;  // what the store had to say
};

// Counts the unread posts, deletes old ones when `settings` want that, and reads the tree, in this
// order and on threads of its own: the store's pauses pass while the panes are built. No other
// thread of the module may use the database until the answer is taken. The future's end waits for
// theirs.
std::future<StartContent> ReadStart(std::string dbPath, CodePage codePage,
                                    const Settings& settings);

}  // namespace feedloom
