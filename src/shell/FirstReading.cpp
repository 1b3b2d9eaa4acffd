#include "shell/FirstReading.h"

#include <string_view>
#include <utility>

#include "store/Counts.h"
#include "store/Folders.h"
#include "store/Posts.h"
#include "store/Undo.h"
#include "threads/Clock.h"
#include "ui/tree/TreeLoader.h"

namespace feedloom {
namespace {

bool DeletesOldPosts(const Settings& settings) {
  return settings.feedDeleteMode == 0 && settings.feedDeleteDate > 0;
}

// The folders are read in parallel: their unread counts take as long as those of the channels. The
// launch policy is the default one, which keeps the work on this thread when the system refuses
// another.
std::optional<TreeContent> ReadTreeInParallel(Store& rows, Store& folders) {
  TreeContent tree;
  auto reading = std::async([&] { return LoadFolderList(folders, tree.folders); });
  const bool areRowsRead = ReadTreeWithoutFolders(rows, tree);
  if (!reading.get() || !areRowsRead) return std::nullopt;
  return tree;
}

FirstContent ReadBeforeDeletion(Store& rows, Store& folders, const Settings& settings) {
  FirstContent content{.unread = CountUnreadPosts(rows), .tree = std::nullopt};
  if (content.unread >= 0) ForgetUndoStep(rows);  // of an earlier frame
  const bool isTreeRead = content.unread >= 0 && !DeletesOldPosts(settings);
  if (isTreeRead) content.tree = ReadTreeInParallel(rows, folders);
  return content;
}

// Old posts that cannot be deleted stay in the tree; the store reports the failure.
FirstContent DeleteAndRead(Store& rows, Store& folders, const Settings& settings,
                           FirstContent content) {
  if (content.unread < 0 || !DeletesOldPosts(settings)) return content;
  DeleteOldPosts(rows, settings.feedDeleteDate);
  content.tree = ReadTreeInParallel(rows, folders);
  return content;
}

}  // namespace

FirstContent ReadFirstContent(Store& store, const Settings& settings) {
  return DeleteAndRead(store, store, settings, ReadBeforeDeletion(store, store, settings));
}

CollectingStore::CollectingStore(const Store& other)
    : store(other.DbPath(), other.TextCodePage(), SystemClock(),
            [this](std::string_view text) { failures.emplace_back(text); }) {}

FirstReading::FirstReading(const Store& store, const Settings& settings)
    : settings_(settings), rows_(store), folders_(store), first_(std::async([this] {
        return ReadBeforeDeletion(rows_.store, folders_.store, settings_);
      })) {}

FirstContent FirstReading::Finish() {
  return DeleteAndRead(rows_.store, folders_.store, settings_, first_.get());
}

std::vector<std::string> FirstReading::Failures() const {
  std::vector<std::string> all = rows_.failures;
  all.insert(all.end(), folders_.failures.begin(), folders_.failures.end());
  return all;
}

}  // namespace feedloom
