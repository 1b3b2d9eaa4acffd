// The refresh of one channel, as a worker thread runs it.
#pragma once

#include <stop_token>

#include "fetch/FeedMemory.h"
#include "fetch/FetchServices.h"
#include "fetch/LargeDocuments.h"
#include "net/TransferPool.h"
#include "refresh/RefreshQueue.h"
#include "store/Connection.h"
#include "threads/Messages.h"

namespace feedloom {

// Receives a worker's progress, on the worker's thread. Ignores it once the worker was stopped.
class WorkerReport {
 public:
  virtual ~WorkerReport() = default;
  // The document was fetched and is a feed: stopping the worker is no failure from now on.
  virtual void Fetched() = 0;
  // A channel with a negative id has become `channelId`: inserted now, or found in the store.
  virtual void Stored(int channelId, bool newlyInserted) = 0;
  // New posts were inserted, or could not be (InsertChannelPosts). Comes also when the worker was
  // stopped.
  virtual void Inserted(const Changes& posts) = 0;
  // The server has answered that the document has not changed. No call follows.
  virtual void Unchanged() = 0;
  // The refresh has ended with `result`. No call follows.
  virtual void Ended(ChannelResult result) = 0;
};

// What all workers of an engine share.
struct RefreshResources {
  FeedMemory memory;
  TransferPool pool = {};
  LargeDocuments largeDocuments = {};
};

// Downloads and parses the feed of `entry`, inserts its channel if it has a negative id, stores the
// channel's new posts, and tells `report`. The request is conditional (RFC 9110) when the channel
// `holdsPosts`. While a server's "Retry-After" lasts, ends with kDownloadFailed without a request.
// What the try has shown is remembered before `report` learns of its end; of one that was stopped
// only what it has cost.
// Blocks the calling worker thread. Ends within 100 ms of `stop`, or behind the SQL statement under
// way.
void RefreshChannel(const Channel& entry, bool holdsPosts, const FetchServices& services,
                    RefreshResources& resources, WorkerReport& report, std::stop_token stop);

}  // namespace feedloom
