// Dates: from the free text of a feed to the one form that is stored, and from there to the list.
#pragma once

#include <string>
#include <string_view>

#include "platform/Clock.h"

namespace feedloom {

// Turns a feed's date into the stored form "%Y-%m-%d %H:%M:%S" in place, or into an empty text when
// it cannot be read. A text that begins with a digit is read as ISO 8601, any other as RFC 822. The
// zone's offset is added to the clock time as it is written (10:00 +0900 is stored as 19:00, 10:00
// EST as 05:00): existing databases hold their dates so, and they must compare. Any thread.
void NormalizeFeedDate(std::string& text);

// A stored date as the reader sees it: the time alone when it falls on `clock`'s local today, else
// the date alone. Empty for an empty or unreadable text. Any thread.
std::string FormatPostDateForDisplay(std::string_view stored, const Clock& clock);

}  // namespace feedloom
