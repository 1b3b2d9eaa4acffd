// Why a feed failed, in the user's language. Pure but for the host's texts. Any thread that may ask
// for these.
#pragma once

#include <string>

#include "fetch/FeedFault.h"

namespace feedloom {

class Skin;

// Returns the fault as one sentence in the module's code page; empty for None. What a library or a
// server has said of it stands behind it in English. A host without a text for the kind has that of
// any download, or document, that failed.
std::string FaultText(const Skin& skin, const FeedFault& fault);

}  // namespace feedloom
