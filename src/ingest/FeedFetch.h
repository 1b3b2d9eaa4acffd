// The first half of the data's road: from an address to a parsed document.
#pragma once

#include <chrono>
#include <stop_token>
#include <string>

#include "ingest/FeedParser.h"
#include "ingest/IngestServices.h"
#include "platform/Messages.h"
#include "platform/UrlTransfer.h"

namespace feedloom {

// The temporary files: of the worker for `channelId`, of the feed check, and of a list of channels.
std::string WorkerFilePath(const std::string& workDir, int channelId);
std::string CheckFilePath(const std::string& workDir);
std::string ListFilePath(const std::string& workDir);

// Removes the temporary files of all kinds that a crash left in `workDir`. Call it only while
// nothing else works in that folder.
void SweepTempFiles(const std::string& workDir);

struct FeedRequest {
  std::string address;           // in the module's code page; sent as UTF-8
  std::string path;              // of the temporary file
  Validators known = {};         // of the version that is here; not empty: nothing new may be told
  TransferPool* pool = nullptr;  // whose connections are used; none: one of its own
};

struct FetchOutcome {
  ChannelResult result;        // kChannelRefreshed, kDownloadFailed or kDocumentRefused
  int parseCode;               // of the parse; 0 where none was made
  std::string error;           // of the download; English, empty where it succeeded
  std::string address = {};    // where redirects led; empty where the download failed
  bool isNew = true;           // false: the version that is here is the server's; nothing was read
  Validators validators = {};  // of the document
  std::chrono::seconds retryAfter{0};  // a server that is busy wants to be left alone so long
};

// Downloads the document into the file, reads it into `parser` and removes the file, whatever the
// result. Blocks the calling thread; ends within 100 ms of `stop`, as failed.
FetchOutcome FetchFeed(const FeedRequest& request, const IngestServices& services,
                       std::stop_token stop, FeedParser& parser);

// The same, and leaves the file to the caller, who can look at the document then.
FetchOutcome FetchFeedFile(const FeedRequest& request, const IngestServices& services,
                           std::stop_token stop, FeedParser& parser);

}  // namespace feedloom
