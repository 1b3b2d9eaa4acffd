#pragma once

#include <stop_token>

#include "fetch/SiteIcons.h"

namespace feedloom {

// Asks the sites of the store's channels for their icons, each site that has more than one channel
// once, on at most four threads; and removes the icons of sites without a channel. A site is asked
// once a week at most, and only when one of its channels was reached by its last try: to be called
// behind a refresh, whose posts come first. Ends within 100 ms of `stop`, or behind the SQL
// statement under way. Blocks the calling thread, which may be any; two calls at a time may ask a
// site twice.
void AskForIcons(const FetchServices& services, const IconMaker& make, std::stop_token stop);

}  // namespace feedloom
