// What refresh and check need, on a real database, a work folder and a local server.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "ingest/FeedMemory.h"
#include "ingest/IngestServices.h"
#include "kit/FeedServer.h"
#include "kit/RecordingTarget.h"
#include "store/StoreKit.h"

namespace feedloom {

class IngestKit {
 public:
  SharedServices Services() { return Services(db.Clock()); }
  // With a clock of the test's own, which outlives them.
  SharedServices Services(Clock& clock) {
    return std::make_shared<IngestServices>(
        IngestServices{db.Shared(), Registry(folder.File("registry.reg")), clock, WorkDir(),
                       FeedMemoryPath(stateFolder.Path())});
  }
  std::string WorkDir() const { return folder.Path(); }
  // The names of the files in the work folder.
  std::vector<std::string> WorkFiles() const { return folder.Names(); }

  TestStore db;
  TempFolder folder;
  TempFolder stateFolder;  // what is remembered lies here
  FeedServer server;
};

}  // namespace feedloom
