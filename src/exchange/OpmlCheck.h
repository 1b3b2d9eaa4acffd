#pragma once

#include <string>
#include <vector>

#include "exchange/OpmlText.h"
#include "exchange/Subscriptions.h"
#include "text/CodePage.h"

namespace feedloom {

// Whether a written list reads back as it was, and what of it does not.
struct OpmlCheck {
  bool readsBack = true;
  int count = 0;                        // of folders and channels, none of a list that is too long
  std::vector<std::string> first = {};  // the names of the first kMostNamed of them
};

// Reads `opml`, which BuildOpml has made of `list`. When a folder or channel does not come back
// with its name and address, finds those that do not when each is written and read alone. Line
// breaks and tabs count as blanks. Any thread.
OpmlCheck CheckOpml(const std::string& opml, const SubscriptionList& list, CodePage codePage,
                    OpmlEscaping escaping);

}  // namespace feedloom
