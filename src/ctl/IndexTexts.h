#pragma once

#include <optional>

namespace feedloom {

class Session;

// Takes the texts that wait into the index of texts, and tells a terminal how far it is once that
// has taken a second. Returns how many there were; none after a failure, which is reported.
std::optional<int> IndexTexts(Session& session);

}  // namespace feedloom
