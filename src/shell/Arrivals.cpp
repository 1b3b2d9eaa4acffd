#include "shell/Arrivals.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "controls/UserPause.h"
#include "skin/Keys.h"
#include "skin/TextPlaceholders.h"
#include "threads/Messages.h"
#include "ui/Desk.h"
#include "ui/Reading.h"
#include "ui/tree/CRSS_LeftContainer.h"
#include "ui/tree/SelectedPosts.h"
#include "ui/tree/TreeLoader.h"

namespace feedloom {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kBatch{100};
constexpr milliseconds kNextLook{200};  // while the user is in the middle of something

}  // namespace

Arrivals::Arrivals(Desk& desk, Reading& reading, CRSS_LeftContainer& left,
                   std::shared_ptr<Store> store, WriteMark start, BackgroundJobs::Post toHere)
    : desk_(desk),
      reading_(reading),
      left_(left),
      store_(std::move(store)),
      seen_(start),
      jobs_(std::in_place, std::move(toHere)) {
  for (QTimer* const timer : {&countTimer_, &lookTimer_}) timer->setSingleShot(true);
  QObject::connect(&countTimer_, &QTimer::timeout, &countTimer_, [this] {
    countIsDue_ = true;
    ReadNext();
  });
  QObject::connect(&lookTimer_, &QTimer::timeout, &lookTimer_, [this] { ReadNext(); });
}

void Arrivals::Stop() {
  countTimer_.stop();
  lookTimer_.stop();
  jobs_.reset();
}

// Messages of the refresh.

void Arrivals::OnMessage(unsigned number, int first, int second) {
  switch (number) {
    case kMessageChannelResult:
      return OnResult(first, second);
    case kMessageChannelWorker:
      return OnWorker(first, second != 0);
    case kMessageChannelInserted:
      atWork_.insert(first);
      return left_.AddStoredChannel(first);
    default:
      return;
  }
}

void Arrivals::OnResult(int result, int channelId) {
  atWork_.erase(channelId);
  switch (result) {
    case kChannelRefreshed:
      left_.SetChannelState(channelId, result);
      waiting_.push_back(channelId);
      if (!countTimer_.isActive()) countTimer_.start(kBatch);
      break;
    case kDownloadFailed:
    case kDocumentRefused:
    case kLoginWanted:
      left_.SetChannelState(channelId, result);
      TellOf(kTextRefreshError, channelId);
      break;
    case kRunEnded:
      CountNow();
      EndWork();
      LookForChanges();
      break;
    default:
      break;
  }
}

// The first message about a channel tells that a worker begins with it. A second one tells that the
// worker was stopped: it sends no result, but may have stored posts.
void Arrivals::OnWorker(int channelId, bool isNew) {
  left_.SetChannelNewByMessage(channelId, isNew);
  if (isNew || atWork_.insert(channelId).second) return;
  Recount(false);
  atWork_.erase(channelId);
}

// Workers that have begun and not reported were stopped with the run. They may have stored posts.
void Arrivals::EndWork() {
  if (atWork_.empty()) return;
  CountArrivedBy([&] { left_.RecountUnread(false); });
  atWork_.clear();
}

void Arrivals::Recount(bool ofScrapPosts) {
  CountArrivedBy([&] { left_.RecountUnread(ofScrapPosts); });
  ReadNext();
}

void Arrivals::LookForChanges() {
  lookIsDue_ = true;
  ReadNext();
}

// Readings.

// Calls `read` with the store on the background thread, and `take` with its result here.
template <typename Read, typename Take>
void Arrivals::ReadBehind(Read read, Take take) {
  isReading_ = true;
  const auto job = [this, store = store_, revision = left_.Revision(), read = std::move(read),
                    take = std::move(take)](const auto& stop, const auto& tell) {
    if (stop.stop_requested()) return;
    const auto result = std::make_shared<decltype(read(*store))>(read(*store));
    tell([this, revision, take, result] {
      isReading_ = false;
      if (left_.Revision() == revision) take(std::move(*result));
      ReadNext();
    });
  };
  jobs_->Start(job, [this] {
    isReading_ = false;
    lookTimer_.start(kNextLook);  // the system may have a thread then
  });
}

// A reading stays due until its result is taken. The list comes first, as the status texts of the
// channels in it wait for it.
void Arrivals::ReadNext() {
  if (!jobs_ || isReading_) return;
  listIsDue_ = listIsDue_ && desk_.State().listShowsSelection && left_.SelectedRow();
  if (listIsDue_) return ReadShownPosts();
  TellReceived();
  if (countIsDue_) return ReadCounts();
  if (!lookIsDue_) return;
  IsUserBusy() ? lookTimer_.start(kNextLook) : ReadChanges();
}

void Arrivals::ReadCounts() {
  ReadBehind(
      [ids = waiting_](Store& store) { return CountUnreadInChannels(store, ids); },
      [this, channels = waiting_.size()](const auto& counts) { TakeCounts(counts, channels); });
}

void Arrivals::ReadShownPosts() {
  const auto row = left_.SelectedRow();
  ReadBehind([row](Store& store) { return PostsOf(store, row); },
             [this, row](std::optional<PostList> list) {
               listIsDue_ = false;
               const bool isShown = desk_.State().listShowsSelection && left_.SelectedRow() == row;
               if (list && isShown) reading_.RelistPosts(*std::move(list));
             });
}

void Arrivals::ReadChanges() {
  ReadBehind(
      [seen = seen_](Store& store) {
        Changes changes{.mark = ReadWriteMark(store), .tree = std::nullopt};
        if (MayHaveChanged(seen, changes.mark)) changes.tree = ReadTree(store);
        return changes;
      },
      [this](const Changes& changes) {
        if (IsUserBusy()) return;
        lookIsDue_ = false;
        if (changes.tree) TakeChanges(changes);
      });
}

// At the run's end the host is told that everything has arrived: the counts must not come later.
void Arrivals::CountNow() {
  countTimer_.stop();
  if (!jobs_ || waiting_.empty()) return;
  jobs_->StopAll();
  isReading_ = false;
  TakeCounts(CountUnreadInChannels(*store_, waiting_), waiting_.size());
}

// What they change.

// `counts` is of the first `channels` channels that wait; nullopt when they cannot be counted.
void Arrivals::TakeCounts(const std::optional<ChannelCounts>& counts, std::size_t channels) {
  const auto end = waiting_.begin() + static_cast<std::ptrdiff_t>(channels);
  countIsDue_ = false;
  FollowStore([&] {
    for (const auto& [id, count] : counts.value_or(ChannelCounts())) {
      left_.SetChannelUnread(id, count);
    }
  });
  const auto shown = left_.SelectedRow();
  listIsDue_ |= shown && shown->kind == RowKind::Channel &&
                std::find(waiting_.begin(), end, shown->id) != end;
  counted_.insert(counted_.end(), waiting_.begin(), end);
  waiting_.erase(waiting_.begin(), end);
}

void Arrivals::TakeChanges(const Changes& changes) {
  seen_ = changes.mark;
  FollowStore([&] { left_.UpdateTree(*changes.tree); });
  listIsDue_ = true;
}

// Runs a change of the tree's counts. What it adds to channels whose posts are not counted yet has
// been brought by the refresh: it is added to the unread total, and marked as new. Returns its sum.
template <typename Change>
int Arrivals::CountArrivedBy(Change change) {
  std::unordered_map<int, int> before;
  for (const int id : atWork_) before[id] = left_.ChannelUnread(id);
  for (const int id : waiting_) before[id] = left_.ChannelUnread(id);
  change();
  std::vector<int> channels;
  int arrived = 0;
  for (const auto& [id, count] : before) {
    const int added = left_.ChannelUnread(id) - count;
    if (added <= 0) continue;
    arrived += added;
    channels.push_back(id);
  }
  desk_.State().unreadTotal += arrived;
  if (!channels.empty()) left_.SetChannelsNew(channels, true);
  listIsDue_ |= std::ranges::any_of(channels, [this](int id) { return left_.SelectionHolds(id); });
  return arrived;
}

// As CountArrivedBy, for a change that reads what others have done too.
template <typename Change>
void Arrivals::FollowStore(Change change) {
  const int before = left_.UnreadInChannels();
  const int arrived = CountArrivedBy(change);
  const int byOthers = left_.UnreadInChannels() - before - arrived;
  desk_.State().unreadTotal += byOthers;
  desk_.State().announcedTotal += byOthers;
}

// Status texts.

void Arrivals::TellOf(const char* textKey, int channelId) {
  desk_.ReportMessage(
      WithTitle(desk_.GetSkin().GetText(kSectionTexts, textKey), left_.ChannelTitle(channelId)));
}

void Arrivals::TellReceived() {
  // A failure of the store says more than what was received: the posts of it may be missing.
  const std::string received = desk_.GetSkin().GetText(kSectionTexts, kTextReceivedChannel);
  for (const int id : std::exchange(counted_, {})) {
    desk_.ReportPage(WithTitle(received, left_.ChannelTitle(id)), false);
  }
  if (!waiting_.empty() || endText_.empty()) return;
  desk_.ReportPage(std::exchange(endText_, {}), false);
  if (endIsFailure_) desk_.MarkFailure();
}

}  // namespace feedloom
