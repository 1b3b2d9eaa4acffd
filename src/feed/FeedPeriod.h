// How long a feed wishes not to be asked again.
#pragma once

#include <chrono>

#include "xml/XmlDom.h"

namespace feedloom {

inline constexpr std::chrono::seconds kLongestPeriod = std::chrono::days(1);

// Returns the longest wish in the feed of the document element `root`: RSS's "ttl", and
// "sy:updatePeriod" divided by "sy:updateFrequency", of the channel or of Atom's feed. At most
// kLongestPeriod, so that a careless word does not silence a channel; 0 without a wish. Pure; any
// thread.
std::chrono::seconds WishedPeriod(const XmlElement& root);

}  // namespace feedloom
