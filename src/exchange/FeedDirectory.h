// Queries to the web directory of feeds, and its answers. Texts are in the module's code page.
#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

#include "ingest/HttpClient.h"
#include "store/Rows.h"

namespace feedloom {

inline constexpr int kDirectoryPageSize = 50;  // the most records of one answer
// The time limit of a request.
inline constexpr std::chrono::seconds kDirectoryTimeLimit{10};

// Returns the address of a result page: `service` and the query for `page`, counted from 1. The
// word is not percent-encoded. Pure; any thread.
std::string DirectoryQuery(const std::string& service, const std::string& word, int page);

// Appends one row to `rows` for each record of `answer`, at most kDirectoryPageSize, and returns
// the total number of hits that the answer states: 0 when it states none. A row is a post with the
// address of its feed in `feedUrl`. When marks are missing in the answer, texts of its rows may be
// empty or wrong. Pure; any thread.
int ParseDirectoryAnswer(std::string_view answer, std::vector<PostRow>& rows);

// Requests a page and appends its rows. Sets `isAnswered` to whether an answer came before `stop`
// was requested. Returns the total number of hits; without an answer returns 0 and appends nothing.
// Blocks the calling thread.
int SearchDirectory(HttpClient& client, const std::string& service, std::vector<PostRow>& rows,
                    const std::string& word, int page, std::stop_token stop, bool& isAnswered);

}  // namespace feedloom
