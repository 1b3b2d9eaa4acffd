// A real database, a work folder and a local server for refreshes and checks of addresses.
#pragma once

#include "ingest/FeedMemory.h"
#include "ingest/IngestServices.h"
#include "kit/FeedServer.h"
#include "kit/RecordingTarget.h"
#include "store/StoreKit.h"

namespace feedloom {

class IngestKit {
 public:
  SharedServices Services() { return Services(db.Clock()); }
  // `clock` is the test's own and outlives the services.
  SharedServices Services(Clock& clock) {
    return std::make_shared<IngestServices>(
        IngestServices{db.Shared(), Registry(folder.File("registry.reg")), clock, folder.Path(),
                       FeedMemoryPath(memoryFolder.Path())});
  }
  std::vector<std::string> WorkFiles() const { return folder.Names(); }

  TestStore db;
  TempFolder folder;
  TempFolder memoryFolder;  // holds the file of FeedMemory
  FeedServer server;
};

}  // namespace feedloom
