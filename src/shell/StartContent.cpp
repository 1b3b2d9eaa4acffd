#include "shell/StartContent.h"

#include <string_view>
#include <utility>

#include "platform/Clock.h"
#include "store/Counts.h"
#include "store/Folders.h"
#include "store/Posts.h"
#include "store/Store.h"
#include "ui/tree/TreeLoader.h"

namespace feedloom {
namespace {

// A store that collects its failure messages. They can be reported only after the interface thread
// has built the panes.
class CollectingStore {
 public:
  CollectingStore(const std::string& dbPath, CodePage codePage)
      : store(dbPath, codePage, SystemClock(),
              [this](std::string_view text) { failures.emplace_back(text); }) {}
  CollectingStore(const CollectingStore&) = delete;
  CollectingStore& operator=(const CollectingStore&) = delete;

  std::vector<std::string> failures;
  Store store;
};

StartContent Read(const std::string& dbPath, CodePage codePage, const Settings& settings) {
  CollectingStore own(dbPath, codePage);
  StartContent content;
  content.unread = CountUnreadPosts(own.store);
  if (settings.feedDeleteMode == 0 && settings.feedDeleteDate > 0) {
    DeleteOldPosts(own.store, settings.feedDeleteDate);
  }
  // The folders are read in parallel: their unread counts take as long as those of the channels.
  std::vector<FolderRow> folders;
  CollectingStore foldersOwn(dbPath, codePage);
  auto reading = std::async(std::launch::async, [&] { LoadFolderList(foldersOwn.store, folders); });
  content.tree = ReadTreeBelowFolders(own.store);
  reading.wait();
  content.tree.folders = std::move(folders);
  content.failures = std::move(own.failures);
  content.failures.insert(content.failures.end(), foldersOwn.failures.begin(),
                          foldersOwn.failures.end());
  return content;
}

}  // namespace

std::future<StartContent> ReadStart(std::string dbPath, CodePage codePage,
                                    const Settings& settings) {
  return std::async(std::launch::async, [path = std::move(dbPath), codePage, settings] {
    return Read(path, codePage, settings);
  });
}

}  // namespace feedloom
