// Dates of posts: from a feed's text to the stored form, and from the stored form to the list.
#pragma once

#include <string>
#include <string_view>

#include "threads/Clock.h"

namespace feedloom {

// Replaces `text`, a feed's date, by its stored form "%Y-%m-%d %H:%M:%S", or by an empty text when
// it cannot be read. A text that begins with a digit is read as ISO 8601, any other as RFC 822. The
// zone's offset is added to the time of day (10:00 +0900 is stored as 19:00, 10:00 EST as 05:00):
// existing databases hold such dates, and old and new ones must compare. Any thread may call it.
void NormalizeFeedDate(std::string& text);

// Returns the date `stored` as the list shows it: the time of day when its date is today's local
// date of `clock`, else the date. Returns an empty text when `stored` is empty or cannot be read.
// Any thread may call it.
std::string FormatPostDateForDisplay(std::string_view stored, const Clock& clock);

}  // namespace feedloom
