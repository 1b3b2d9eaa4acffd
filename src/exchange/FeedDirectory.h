// The web directory of feeds: what it is asked, and what its answers say. Texts are in the module's
// code page.
#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

#include "ingest/HttpClient.h"
#include "store/Rows.h"

namespace feedloom {

inline constexpr int kDirectoryPageSize = 50;  // records that one answer holds at most
// Who asks gives up then.
inline constexpr std::chrono::seconds kLongestDirectoryRequest{10};

// The address to ask at: `service`, and behind it the query for this page (from 1 on). The word
// stands in it as it was typed, not encoded: the service knows it no other way. Pure.
std::string DirectoryQuery(const std::string& service, const std::string& word, int page);

// Appends one row a record of `answer`, and returns the number of hits that the service has in all.
// A row is a post with the address of its feed in `feedUrl`. An answer with marks missing gives
// rows with texts that are cut wrongly, and no more than a page of them; one without a total 0.
// Pure.
int CutDirectoryAnswer(std::string_view answer, std::vector<PostRow>& rows);

// Asks for a page and appends its rows. Returns the total; 0, and nothing is appended, when no
// answer comes or `stop` does first. `isAnswered` tells which. Blocks the calling thread.
int SearchDirectory(HttpClient& client, const std::string& service, std::vector<PostRow>& rows,
                    const std::string& word, int page, std::stop_token stop, bool& isAnswered);

}  // namespace feedloom
