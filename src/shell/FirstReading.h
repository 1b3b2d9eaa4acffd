#pragma once

#include <future>
#include <optional>
#include <string>
#include <vector>

#include "store/Store.h"
#include "ui/Settings.h"
#include "ui/tree/GroupTreeModel.h"

namespace feedloom {

// What the frame shows of the store at its start.
struct FirstContent {
  int unread = -1;                  // unread posts before old ones are deleted
  std::optional<TreeContent> tree;  // none when a part of the content cannot be read
};

// Reads the content, after the old posts have been deleted when `settings` want it. Any thread.
FirstContent ReadFirstContent(Store& store, const Settings& settings);

// A store that keeps its failure messages.
struct CollectingStore {
  // A store of the same database as `other`.
  explicit CollectingStore(const Store& other);
  CollectingStore(const CollectingStore&) = delete;
  CollectingStore& operator=(const CollectingStore&) = delete;

  std::vector<std::string> failures;
  Store store;
};

// The first reading, on two threads of its own, so that the pauses between the statements pass
// while the panes are built. When the system refuses a thread, the work is done in Finish. From the
// constructor until Finish has returned, no other thread of the module may use the database. The
// destructor waits for the threads.
class FirstReading {
 public:
  // Begins to count the unread posts, and to read the tree unless `settings` want old posts to be
  // deleted before.
  FirstReading(const Store& store, const Settings& settings);

  // To be called once, when the panes stand: deletes old posts when the settings want it, and
  // returns the content.
  FirstContent Finish();
  // The store's messages after Finish, in its code page.
  std::vector<std::string> Failures() const;

 private:
  const Settings settings_;
  CollectingStore rows_;
  CollectingStore folders_;
  std::future<FirstContent> first_;  // behind the stores, which its thread uses
};

}  // namespace feedloom
