#pragma once

#include <string>

#include "exchange/Subscriptions.h"
#include "platform/CodePage.h"

namespace feedloom {

// The list as an OPML 1.0 document on one line, in `codePage`, which its declaration names.
// `created` is a local time without its zone, "2026-11-22T09:30:00" (ISO 8601). Of the texts only
// "&" is escaped: a name with a quote or "<" in it makes a document that is not well-formed, as the
// programs that read these lists have always got it. Pure; any thread.
std::string BuildOpml(const SubscriptionList& list, CodePage codePage, const std::string& created);

}  // namespace feedloom
