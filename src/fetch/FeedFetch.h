// Downloads a feed's document and parses it.
#pragma once

#include <chrono>
#include <optional>
#include <stop_token>
#include <string>

#include "feed/FeedParser.h"
#include "fetch/FeedFault.h"
#include "fetch/FetchServices.h"
#include "net/UrlTransfer.h"
#include "threads/Messages.h"

namespace feedloom {

// The paths of temporary files in `workDir`: of the worker that refreshes `channelId`, of the feed
// check, and of a list of subscriptions.
std::string WorkerFilePath(const std::string& workDir, int channelId);
std::string CheckFilePath(const std::string& workDir);
std::string ListFilePath(const std::string& workDir);

// Removes the temporary files that a crash has left in `workDir`. Nothing else may use that folder
// meanwhile.
void SweepTempFiles(const std::string& workDir);

struct FeedRequest {
  std::string address;           // in the module's code page; sent as UTF-8
  std::string path;              // of the temporary file
  Validators known = {};         // of the stored version: makes the request conditional
  TransferPool* pool = nullptr;  // the connections to use; null: a new connection
  // A login that the user has just given for a server. It is kept when a document comes.
  std::optional<GivenLogin> login = {};
};

struct FetchOutcome {
  ChannelResult result;        // kChannelRefreshed, kDownloadFailed, kDocumentRefused, kLoginWanted
  int parseCode;               // a ParseCode; kParsed when nothing was parsed
  std::string error;           // why it failed, in English; empty when the result says it all
  std::string address = {};    // the document's, after redirects; empty when the download failed
  bool isNew = true;           // false: the server has answered 304, and nothing was parsed
  Validators validators = {};  // of the new document
  std::chrono::seconds retryAfter{0};  // "Retry-After" of an answer 429 or 503 (RFC 9110); else 0
  std::string loginServer = {};  // with kLoginWanted: the UrlOrigin of the server that wants it
  bool loginIsLost = false;      // the request's login could not be kept
  FeedFault fault = {};          // None exactly with kChannelRefreshed; TimedOut after a stop
  // Of an answer that came: where the feed has gone for good (TransferResult::movedTo), and how
  // long it wishes not to be asked again, a day at most. A 304 has no period.
  std::string movedTo = {};
  std::chrono::seconds period{0};
};

// Downloads the document to `request.path`, parses it with `parser` and always removes the file.
// Blocks the calling thread, which may be any. Ends within 100 ms of `stop`, with kDownloadFailed
// or kDocumentRefused.
[[nodiscard]] FetchOutcome FetchFeed(const FeedRequest& request, const FetchServices& services,
                                     std::stop_token stop, FeedParser& parser);

// FetchFeed without removing the file, which then belongs to the caller.
[[nodiscard]] FetchOutcome FetchFeedFile(const FeedRequest& request, const FetchServices& services,
                                         std::stop_token stop, FeedParser& parser);

}  // namespace feedloom
