#pragma once

#include <memory>
#include <string>

#include "feed/FeedItem.h"
#include "files/Registry.h"
#include "store/Store.h"
#include "text/CodePage.h"
#include "threads/Clock.h"

namespace feedloom {

// The services that downloads and refreshes use. Each thread holds a shared pointer to them, so
// that they outlive a worker that is still running when its owner has stopped waiting for it. Any
// thread may read the members; `clock` must outlive the object.
struct FetchServices {
  std::shared_ptr<Store> store;
  Registry registry;  // holds the proxy settings, which are read before each transfer
  Clock& clock;
  std::string workDir;          // the folder of temporary files, in the file system's encoding
  std::string feedMemory = {};  // the path of FeedMemory's file; empty: no file is used

  bool isLenient = false;  // HostConfig::ReadsLeniently

  FeedReading Reading() const { return {TextCodePage(), isLenient}; }
  CodePage TextCodePage() const { return store->TextCodePage(); }
};

using SharedServices = std::shared_ptr<const FetchServices>;

}  // namespace feedloom
