// Queries to the web directory of feeds, and its answers. Texts are in the module's code page.
#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

#include "net/HttpClient.h"
#include "store/Rows.h"

namespace feedloom {

inline constexpr int kDirectoryPageSize = 50;  // the most records of one answer
// The time limit of a request.
inline constexpr std::chrono::seconds kDirectoryTimeLimit{10};

// Returns the address of a result page: `service` and the query for `page`, counted from 1. The
// word is not percent-encoded. Pure; any thread.
std::string DirectoryQuery(const std::string& service, const std::string& word, int page);

struct DirectoryAnswer {
  bool isAnswered = false;         // false: no answer came in time
  int total = 0;                   // of hits, as the service states it; 0 when it states none
  std::vector<PostRow> rows = {};  // posts with the address of their feed in `feedUrl`
};

// Reads one row for each record of the answer `text`, at most kDirectoryPageSize. When marks are
// missing in it, texts of its rows may be empty or wrong. Pure; any thread.
DirectoryAnswer ParseDirectoryAnswer(std::string_view text);

// Requests a page. Not answered when no answer comes before `stop` is requested. Blocks the calling
// thread.
DirectoryAnswer SearchDirectory(HttpClient& client, const std::string& service,
                                const std::string& word, int page, std::stop_token stop);

}  // namespace feedloom
