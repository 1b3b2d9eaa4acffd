#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace feedloom {

// The earliest date of posts that a user means by `typed`: a day ("2026-11-23") or a time before
// `now` ("12h", "7d"), as the store spells dates, in the machine's time zone. Returns nothing when
// it is neither.
std::optional<std::string> SinceDate(const std::string& typed,
                                     std::chrono::system_clock::time_point now);

}  // namespace feedloom
