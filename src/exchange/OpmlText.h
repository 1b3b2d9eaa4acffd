#pragma once

#include <string>

#include "exchange/Subscriptions.h"
#include "text/CodePage.h"

namespace feedloom {

// Returns the list as an OPML 1.0 document on one line. Its texts are in `codePage`, which the XML
// declaration names. `created` is a local time without a zone, such as "2026-11-22T09:30:00" (ISO
// 8601). Only "&" is escaped in texts: a name that contains a quote or "<" makes the document
// malformed. Pure; any thread.
std::string BuildOpml(const SubscriptionList& list, CodePage codePage, const std::string& created);

}  // namespace feedloom
