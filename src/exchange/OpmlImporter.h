#pragma once

#include <functional>
#include <optional>
#include <string>

#include "exchange/OpmlImport.h"
#include "platform/BackgroundJobs.h"

namespace feedloom {

struct ImportEnd {
  std::optional<ImportSums> sums;  // none when the list could not be read
  std::string error;               // why; English
};

// What an import brings, told on the thread that owns the importer. After `onEnd` it is over.
struct ImportReceiver {
  ImportNews news;
  std::function<void(const ImportEnd& end)> onEnd;
};

// Runs imports on a thread below normal priority, one after the other. Belongs to the thread that
// made it.
class OpmlImporter {
 public:
  // Its end stops the imports and waits for the statement, or the element, under way; what was
  // added stays.
  OpmlImporter(SharedServices services, BackgroundJobs::Post toOwner)
      : services_(std::move(services)), jobs_(std::move(toOwner)) {}

  void Start(const ListSource& source, NameClash clash, ImportReceiver receiver);

 private:
  const SharedServices services_;
  BackgroundJobs jobs_;
};

}  // namespace feedloom
