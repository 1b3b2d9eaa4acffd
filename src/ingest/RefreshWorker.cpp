#include "ingest/RefreshWorker.h"

#include "ingest/FeedDate.h"
#include "ingest/FeedFetch.h"
#include "ingest/FeedParser.h"
#include "store/Channels.h"
#include "store/Connection.h"
#include "store/Posts.h"

namespace feedloom {
namespace {

NewPost ToNewPost(FeedItem item) {
  NormalizeFeedDate(item.date);
  return {std::move(item.title), std::move(item.link), std::move(item.date),
          std::move(item.description), item.isPodcast};
}

// The entry as its own document describes it; a document without a title leaves the entry's.
ChannelRecord ToRecord(const RefreshEntry& entry, FeedParser& parser) {
  ChannelRecord record;
  record.id = entry.channelId;
  record.folderId = entry.folderId;
  record.title = parser.GetChannelTitle().empty() ? entry.title : parser.GetChannelTitle();
  record.type = entry.type;
  record.xmlLink = entry.xmlLink;
  record.htmlLink = parser.GetChannelLink();
  record.order = entry.order;
  for (FeedItem& item : parser.TakeItems()) record.posts.push_back(ToNewPost(std::move(item)));
  return record;
}

void StoreChannel(ChannelRecord record, Store& store, WorkerReport& report, std::stop_token stop) {
  if (stop.stop_requested()) return;
  Connection connection(store);
  if (!connection) return;
  connection.KeepJournalFile();
  if (record.id < 0) {
    if (!AddChannelRecord(connection, record)) return;
    report.Stored(record.id, record.newlyInserted);
  }
  InsertChannelPosts(connection, record, std::move(stop));
}

}  // namespace

void RefreshChannel(const RefreshEntry& entry, const IngestServices& services, WorkerReport& report,
                    std::stop_token stop) {
  FeedParser parser(services.TextCodePage());
  const std::string path = WorkerFilePath(services.workDir, entry.channelId);
  const ChannelResult result = FetchFeed(entry.xmlLink, path, services, stop, parser).result;
  if (result == kChannelRefreshed) {
    report.Fetched();
    StoreChannel(ToRecord(entry, parser), *services.store, report, stop);
  }
  report.Ended(result);
}

}  // namespace feedloom
