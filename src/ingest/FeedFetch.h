// The first half of the data's road: from an address to a parsed document.
#pragma once

#include <stop_token>
#include <string>

#include "ingest/FeedParser.h"
#include "ingest/IngestServices.h"
#include "platform/Messages.h"

namespace feedloom {

// The temporary files: of the worker for `channelId`, of the feed check, and of a list of channels.
std::string WorkerFilePath(const std::string& workDir, int channelId);
std::string CheckFilePath(const std::string& workDir);
std::string ListFilePath(const std::string& workDir);

// Removes the temporary files of all kinds that a crash left in `workDir`. Call it only while
// nothing else works in that folder.
void SweepTempFiles(const std::string& workDir);

struct FetchOutcome {
  ChannelResult result;      // kChannelRefreshed, kDownloadFailed or kDocumentRefused
  int parseCode;             // of the parse; 0 where none was made
  std::string error;         // of the download; English, empty where it succeeded
  std::string address = {};  // where redirects led; empty where the download failed
};

// Downloads `address`, a text in the module's code page that is sent as UTF-8, into `path`, reads
// the document into `parser` and removes the file, whatever the result. Blocks the calling thread;
// ends within 100 ms of `stop`, as failed.
FetchOutcome FetchFeed(const std::string& address, const std::string& path,
                       const IngestServices& services, std::stop_token stop, FeedParser& parser);

// The same, and leaves the file to the caller, who can look at the document then.
FetchOutcome FetchFeedFile(const std::string& address, const std::string& path,
                           const IngestServices& services, std::stop_token stop,
                           FeedParser& parser);

}  // namespace feedloom
