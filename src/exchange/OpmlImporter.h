#pragma once

#include <functional>
#include <optional>
#include <string>

#include "exchange/OpmlImport.h"
#include "threads/BackgroundJobs.h"

namespace feedloom {

struct ImportEnd {
  std::optional<ImportSums> sums;  // none when the list could not be read
  std::string error;               // the reason in English, without sums
};

// Called during an import on the thread that owns the importer; `onEnd` is the last call.
struct ImportReceiver {
  ImportListener news;
  std::function<void(const ImportEnd& end)> onEnd;
};

// Runs imports one after the other on a background thread with a lower priority. An object belongs
// to the thread that has created it.
class OpmlImporter {
 public:
  // `toOwner` runs work on the owner's thread. The destructor stops all imports and waits until the
  // current SQL statement or document element is done; what was added stays in the store.
  OpmlImporter(SharedServices services, BackgroundJobs::Post toOwner)
      : services_(std::move(services)), jobs_(std::move(toOwner)) {}

  // Starts an import, or queues it behind those that were started before. Returns at once. An
  // import for which the system has no thread ends as one of a list that cannot be read.
  void Start(const ListSource& source, NameClash clash, ImportReceiver receiver);

 private:
  const SharedServices services_;
  BackgroundJobs jobs_;
};

}  // namespace feedloom
