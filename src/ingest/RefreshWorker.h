// The refresh of one channel, as a worker thread runs it.
#pragma once

#include <stop_token>

#include "ingest/FeedMemory.h"
#include "ingest/IngestServices.h"
#include "ingest/LargeDocuments.h"
#include "ingest/RefreshQueue.h"
#include "platform/Messages.h"
#include "platform/UrlPool.h"

namespace feedloom {

// How a worker tells its run what happens. Once the worker was stopped or given up, nothing of it
// is passed on.
class WorkerReport {
 public:
  virtual ~WorkerReport() = default;
  // The document is here and is a feed: a worker that is stopped from now on has not failed.
  virtual void Fetched() = 0;
  // A channel that was not in the store is there as `channelId`, inserted now or found.
  virtual void Stored(int channelId, bool newlyInserted) = 0;
  // So many posts of the channel were not there before.
  virtual void Inserted(int newPosts) = 0;
  // The server has no other version than the one that is stored; the worker's last call.
  virtual void Unchanged() = 0;
  // The worker is done; its last call.
  virtual void Ended(ChannelResult result) = 0;
};

// What the workers of one process share.
struct WorkersWeb {
  FeedMemory memory;
  TransferPool pool = {};
  LargeDocuments largeDocuments = {};
};

// Downloads and parses the feed of `entry` and stores the posts that its channel does not have yet;
// a channel that is not in the store is inserted first. When it `holdsPosts`, the server may say
// that nothing is new. A server that has asked to be left alone is not asked: the download failed.
// Blocks; ends soon after `stop`.
void RefreshChannel(const RefreshEntry& entry, bool holdsPosts, const IngestServices& services,
                    WorkersWeb& web, WorkerReport& report, std::stop_token stop);

}  // namespace feedloom
