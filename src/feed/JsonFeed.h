// Reads a JSON Feed (https://www.jsonfeed.org/version/1.1/, and version 1).
#pragma once

#include <stop_token>
#include <string>
#include <vector>

#include "feed/FeedItem.h"
#include "feed/ParseCode.h"
#include "xml/XmlLimits.h"

namespace feedloom {

// Whether the file at `path` begins like a JSON object: with "{", behind white space and a byte
// order mark of UTF-8.
bool LooksLikeJson(const std::string& path);

struct JsonFeed {
  ParseCode code = kParsed;
  std::string error = {};  // why it was refused, in English, where there is more to say
  FeedHeader header = {};
  std::vector<FeedItem> items = {};  // incomplete after a failure
};

// Reads the file at `path`. The document counts with twice its size, and its items with what they
// take besides, against `limits`. Bytes that are not UTF-8 become "?". An attachment to listen to
// or to watch becomes its item's link, as an enclosure does. The code is kParsed, kParseStopped,
// kDocumentNotCreated, kDocumentUnreadable (no JSON, nested deeper than 64, too large), or
// kUnknownRoot when no version of JSON Feed stands in it. Never throws. Any thread.
JsonFeed ReadJsonFeed(const std::string& path, const FeedReading& reading, const XmlLimits& limits,
                      const std::stop_token& stop);

}  // namespace feedloom
