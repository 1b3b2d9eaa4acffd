// What the frame reads of the store at its start: first while the panes are built, and again until
// it can be read.
#pragma once

#include <QTimer>
#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/BackgroundJobs.h"
#include "store/Store.h"
#include "ui/Settings.h"
#include "ui/tree/GroupTreeModel.h"

namespace feedloom {

struct StartContent {
  int unread = -1;                  // unread posts before old ones are deleted
  std::optional<TreeContent> tree;  // none when a part of the start's content cannot be read
};

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
  StartContent Finish();
  // The store's messages after Finish, in its code page.
  std::vector<std::string> Failures() const;

 private:
  const Settings settings_;
  CollectingStore rows_;
  CollectingStore folders_;
  std::future<StartContent> first_;  // behind the stores, which its thread uses
};

// Reads the start's content every half second on a background thread, until it can be read.
// Interface thread only.
class StartRetry {
 public:
  using OnRead = std::function<void(StartContent content)>;

  // Begins half a second later. `toOwner` queues work for the interface thread. `onRead` is called
  // once, with a tree, and may destroy the object. `store` reports each failure.
  StartRetry(std::shared_ptr<Store> store, const Settings& settings, BackgroundJobs::Post toOwner,
             OnRead onRead);

  // Reads at once. What is being read is dropped: it may lack a row that has been stored since.
  void ReadNow();

 private:
  void Take(StartContent content);

  const std::shared_ptr<Store> store_;
  const Settings settings_;
  const OnRead onRead_;
  QTimer timer_;
  BackgroundJobs jobs_;
};

}  // namespace feedloom
