// A fault in English, for the command line. Pure; any thread.
#pragma once

#include <string>
#include <string_view>

#include "fetch/FeedFault.h"

namespace feedloom {

// Returns the fault as one line of UTF-8: "no such host", "HTTP status 404". Empty for None.
std::string FaultWords(const FeedFault& fault);

// Returns a word for the kind, which programs may rely on: "no-such-host". Empty for None.
std::string_view FaultKindName(FeedFaultKind kind);

}  // namespace feedloom
