#pragma once

#include <stop_token>

#include "store/TextRows.h"

namespace feedloom {

// Which texts a scan reads: all, or those that wait to be indexed.
enum class ScannedTexts { kAll, kWaiting };

// Reads texts themselves, some hundred posts a statement, and calls `onHit` for each post of `rows`
// that meets the query. `haveSaved` is SearchedRows::HaveSaved. Returns false after a failure,
// which is reported, and when `stop` was requested. Any thread.
bool ScanTexts(TextRows& texts, const SearchedRows& rows, ScannedTexts which,
               const std::stop_token& stop, const OnHit& onHit);

}  // namespace feedloom
