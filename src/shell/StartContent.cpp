#include "shell/StartContent.h"

#include <string_view>
#include <utility>

#include "platform/Clock.h"
#include "store/Counts.h"
#include "store/Folders.h"
#include "store/Posts.h"
#include "ui/tree/TreeLoader.h"

namespace feedloom {
namespace {

constexpr std::chrono::milliseconds kRetryPeriod{500};

bool DeletesOldPosts(const Settings& settings) {
  return settings.feedDeleteMode == 0 && settings.feedDeleteDate > 0;
}

// The folders are read in parallel: their unread counts take as long as those of the channels. The
// launch policy is the default one, which keeps the work on this thread when the system refuses
// another.
std::optional<TreeContent> ReadTree(Store& rows, Store& folders) {
  TreeContent tree;
  auto reading = std::async([&] { return LoadFolderList(folders, tree.folders); });
  const bool areRowsRead = ReadTreeBelowFolders(rows, tree);
  if (!reading.get() || !areRowsRead) return std::nullopt;
  return tree;
}

StartContent ReadBeforeDeletion(Store& rows, Store& folders, const Settings& settings) {
  StartContent content{.unread = CountUnreadPosts(rows), .tree = std::nullopt};
  if (content.unread >= 0 && !DeletesOldPosts(settings)) content.tree = ReadTree(rows, folders);
  return content;
}

// Old posts that cannot be deleted stay in the tree; the store reports the failure.
StartContent DeleteAndRead(Store& rows, Store& folders, const Settings& settings,
                           StartContent content) {
  if (content.unread < 0 || !DeletesOldPosts(settings)) return content;
  DeleteOldPosts(rows, settings.feedDeleteDate);
  content.tree = ReadTree(rows, folders);
  return content;
}

StartContent ReadAll(Store& store, const Settings& settings) {
  return DeleteAndRead(store, store, settings, ReadBeforeDeletion(store, store, settings));
}

}  // namespace

CollectingStore::CollectingStore(const Store& other)
    : store(other.DbPath(), other.TextCodePage(), SystemClock(),
            [this](std::string_view text) { failures.emplace_back(text); }) {}

FirstReading::FirstReading(const Store& store, const Settings& settings)
    : settings_(settings), rows_(store), folders_(store), first_(std::async([this] {
        return ReadBeforeDeletion(rows_.store, folders_.store, settings_);
      })) {}

StartContent FirstReading::Finish() {
  return DeleteAndRead(rows_.store, folders_.store, settings_, first_.get());
}

std::vector<std::string> FirstReading::Failures() const {
  std::vector<std::string> all = rows_.failures;
  all.insert(all.end(), folders_.failures.begin(), folders_.failures.end());
  return all;
}

StartRetry::StartRetry(std::shared_ptr<Store> store, const Settings& settings,
                       BackgroundJobs::Post toOwner, OnRead onRead)
    : store_(std::move(store)),
      settings_(settings),
      onRead_(std::move(onRead)),
      jobs_(std::move(toOwner)) {
  timer_.setSingleShot(true);
  timer_.callOnTimeout([this] { ReadNow(); });
  timer_.start(kRetryPeriod);
}

void StartRetry::ReadNow() {
  timer_.stop();
  jobs_.StopAll();
  const auto job = [this, store = store_, settings = settings_](const std::stop_token& /*stop*/,
                                                                const BackgroundJobs::Tell& tell) {
    tell([this, content = ReadAll(*store, settings)] { Take(content); });
  };
  jobs_.Start(job, [this] { Take(ReadAll(*store_, settings_)); });
}

void StartRetry::Take(StartContent content) {
  if (!content.tree) return timer_.start(kRetryPeriod);
  const OnRead onRead = onRead_;  // outlives this object, which it may destroy
  onRead(std::move(content));
}

}  // namespace feedloom
