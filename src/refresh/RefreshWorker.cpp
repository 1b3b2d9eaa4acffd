#include "refresh/RefreshWorker.h"

#include <algorithm>
#include <chrono>

#include "feed/FeedDate.h"
#include "feed/FeedParser.h"
#include "fetch/FeedFetch.h"
#include "fetch/VisitAfter.h"
#include "store/ChannelAdder.h"
#include "store/Channels.h"
#include "store/Connection.h"
#include "store/Posts.h"

namespace feedloom {
namespace {

// Memory limits, in bytes, while five workers run. A worker whose document or posts exceed one
// waits for its turn (LargeDocuments). An INSERT needs about five copies of its text.
constexpr std::size_t kCommonDocument = 2u << 20;  // the parsed document
constexpr std::size_t kCommonPosts = 4u << 20;     // all posts of a channel
constexpr std::size_t kCommonPost = 256u << 10;    // one post

NewPost ToNewPost(FeedItem item) {
  NormalizeFeedDate(item.date);
  return {.title = std::move(item.title),
          .link = std::move(item.link),
          .published = std::move(item.date),
          .description = std::move(item.description),
          .isPodcast = item.isPodcast,
          .details = {std::move(item.authors), std::move(item.categories)},
          .writtenLink = std::move(item.writtenLink)};
}

XmlLimits LimitsFor(LargeDocuments::Turn& turn, const std::stop_token& stop) {
  return {.atOnce = kCommonDocument, .askForMore = [&turn, stop] { return turn.Acquire(stop); }};
}

std::size_t SizeOf(const NewPost& post) {
  return post.title.size() + post.link.size() + post.description.size();
}

bool IsLarge(const ChannelRecord& record) {
  std::size_t sum = 0;
  for (const NewPost& post : record.posts) {
    sum += SizeOf(post);
    if (SizeOf(post) > kCommonPost) return true;
  }
  return sum > kCommonPosts;
}

// Returns the channel of `entry` with the title, home page and posts of its document. Without a
// title in the document the entry's title stays.
ChannelRecord ToRecord(const Channel& entry, FeedParser& parser) {
  ChannelRecord record{entry};
  if (!parser.GetChannelTitle().empty()) record.title = parser.GetChannelTitle();
  record.htmlLink = parser.GetChannelLink();
  std::vector<FeedItem> items = parser.TakeItems();
  record.posts.reserve(items.size());
  for (FeedItem& item : items) record.posts.push_back(ToNewPost(std::move(item)));
  return record;
}

// Inserts the channel, if it is not in the store, its new posts, and the state of a channel that
// was refreshed, as one operation of the store.
Changes StoreInOneOperation(Connection& connection, ChannelRecord& record, WorkerReport& report,
                            const std::stop_token& stop) {
  const Connection::Operation operation(connection);
  if (record.id < 0) {
    if (!AddChannelRecord(connection, record)) {
      return {.failed = static_cast<int>(record.posts.size())};
    }
    report.Stored(record.id, record.newlyInserted);
  }
  const Changes posts = InsertChannelPosts(connection, record, stop);
  if (!stop.stop_requested()) SetChannelState(connection, record.id, kChannelRefreshed);
  return posts;
}

// Returns the number of posts of `record` that are not in the store now.
int StoreChannel(ChannelRecord& record, Store& store, WorkerReport& report,
                 const std::stop_token& stop) {
  Changes posts{.failed = static_cast<int>(record.posts.size())};
  if (!stop.stop_requested()) {
    Connection connection(store);
    if (connection) posts = StoreInOneOperation(connection, record, report, stop);
  }
  report.Inserted(posts);
  return posts.failed;
}

// What a try is remembered by. `missing` is the number of posts that could not be stored.
struct Try {
  const Channel& entry;
  const FeedVisit& last;
  const FetchOutcome& outcome;
  const std::stop_token& stop;
};

// A stop is no answer of the server; what stops a worker may have remembered something itself. But
// without the posts that are missing the next request is for the whole document.
void Remember(const Try& done, int channelId, int missing, const Clock& clock, FeedMemory& memory) {
  if (channelId < 0) return;
  FeedVisit visit = done.last;
  const bool hasAll = done.outcome.result == kChannelRefreshed && missing == 0;
  if (hasAll || !done.stop.stop_requested()) {
    visit = VisitAfter(std::move(visit), done.outcome, missing, clock.Now());
  } else {
    visit = memory.Last(channelId, done.entry.xmlLink);
    if (missing > 0) visit.validators = {};
  }
  memory.Remember(channelId, std::move(visit));
}

}  // namespace

void RefreshChannel(const Channel& entry, bool holdsPosts, const FetchServices& services,
                    RefreshResources& resources, WorkerReport& report, std::stop_token stop) {
  const FeedVisit last = resources.memory.Last(entry.id, entry.xmlLink);
  if (MustWait(last, services.clock.Now())) return report.Ended(kDownloadFailed);
  LargeDocuments::Turn turn(resources.largeDocuments);
  FeedParser parser(services.Reading(), LimitsFor(turn, stop));
  const FetchOutcome outcome = FetchFeed({.address = entry.xmlLink,
                                          .path = WorkerFilePath(services.workDir, entry.id),
                                          .known = holdsPosts ? last.validators : Validators(),
                                          .pool = &resources.pool},
                                         services, stop, parser);
  const Try aTry{entry, last, outcome, stop};
  if (!outcome.isNew) {
    Remember(aTry, entry.id, 0, services.clock, resources.memory);
    return report.Unchanged();
  }
  if (outcome.result == kChannelRefreshed) {
    report.Fetched();
    ChannelRecord record = ToRecord(entry, parser);
    if (IsLarge(record)) {
      turn.Acquire(stop);
    } else {
      turn.Release();
    }
    const int missing = StoreChannel(record, *services.store, report, stop);
    Remember(aTry, record.id, missing, services.clock, resources.memory);
  } else {
    Remember(aTry, entry.id, 0, services.clock, resources.memory);
  }
  report.Ended(outcome.result);
}

}  // namespace feedloom
