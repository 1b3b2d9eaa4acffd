#pragma once

#include <functional>
#include <optional>
#include <string>

#include "exchange/OpmlImport.h"
#include "threads/BackgroundJobs.h"

namespace feedloom {

struct ImportEnd {
  std::optional<ImportSums> sums;  // none when the system has no thread
  std::string error;               // the reason in English, without sums
};

// Called while a list is added, on the thread that owns the importer; `onEnd` is the last call.
struct ImportReceiver {
  ImportListener news;
  std::function<void(const ImportEnd& end)> onEnd;
};

// Reads and adds lists, one after the other, on a background thread with a lower priority. An
// object belongs to the thread that has created it.
class OpmlImporter {
 public:
  // `toOwner` runs work on the owner's thread. The destructor stops all imports and waits until the
  // current SQL statement or document element is done; what was added stays in the store.
  OpmlImporter(SharedServices services, BackgroundJobs::Post toOwner)
      : services_(std::move(services)), jobs_(std::move(toOwner)) {}

  // These begin, or queue behind what was begun before, and return at once. A list for which the
  // system has no thread cannot be read.
  void Read(const ListSource& source, std::function<void(const ReadList&)> onRead);
  void Add(ImportPlan plan, NameClash clash, ImportReceiver receiver);

 private:
  const SharedServices services_;
  BackgroundJobs jobs_;
};

}  // namespace feedloom
