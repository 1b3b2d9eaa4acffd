#pragma once

#include <memory>
#include <string>

#include "platform/Clock.h"
#include "platform/CodePage.h"
#include "platform/Registry.h"
#include "store/Store.h"

namespace feedloom {

// What every job of this folder works with. Jobs on threads share one object, so that a job which
// was given up and ends late still finds everything it touches alive.
struct IngestServices {
  std::shared_ptr<Store> store;
  Registry registry;  // for how the web is reached, read afresh for each transfer
  Clock& clock;
  std::string workDir;          // where temporary files lie; the file system's own bytes
  std::string feedMemory = {};  // the file of FeedMemory; empty: nothing is remembered

  CodePage TextCodePage() const { return store->TextCodePage(); }
};

using SharedServices = std::shared_ptr<const IngestServices>;

}  // namespace feedloom
