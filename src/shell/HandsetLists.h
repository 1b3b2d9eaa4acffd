// The lists that are exchanged with the handset, as files in the host's work directory.
#pragma once

#include <string>

#include "exchange/Subscriptions.h"
#include "files/WholeFile.h"
#include "text/CodePage.h"

namespace feedloom {

// The paths, in the file system's encoding.
struct HandsetLists {
  explicit HandsetLists(const std::string& workDir);

  std::string sent;      // the user's list, for the handset
  std::string received;  // the handset's own list
  // What both had after the last synchronisation: what is on it and on the handset's list, but not
  // in the tree, was deleted here, and is not to come back.
  std::string known;
};

// True when the handset has left a list. Any thread.
bool HasReceived(const HandsetLists& lists);

// Writes the folders and channels of both lists to the file `known`. Any thread.
[[nodiscard]] Failure WriteKnown(const HandsetLists& lists, SubscriptionList sent,
                                 const SubscriptionList& received, CodePage codePage);

}  // namespace feedloom
