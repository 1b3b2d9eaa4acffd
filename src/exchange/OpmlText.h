#pragma once

#include <string>

#include "exchange/Subscriptions.h"
#include "text/CodePage.h"

namespace feedloom {

// What is escaped in texts. AmpersandOnly: "&" alone, as lists were always written; a name that
// contains a quote or "<" makes the document malformed then. Everything: what XML 1.0 asks for in
// an attribute; line breaks and tabs are kept, and a blank stands for each control character that
// XML does not allow.
enum class OpmlEscaping { AmpersandOnly, Everything };

// Returns the list as an OPML 1.0 document on one line. Its texts are in `codePage`, which the XML
// declaration names. `created` is a local time without a zone, such as "2026-11-22T09:30:00" (ISO
// 8601). Pure; any thread.
std::string BuildOpml(const SubscriptionList& list, CodePage codePage, const std::string& created,
                      OpmlEscaping escaping);

}  // namespace feedloom
