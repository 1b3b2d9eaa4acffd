#include "shell/HandsetLists.h"

#include <filesystem>

#include "exchange/OpmlText.h"
#include "files/Path.h"

namespace feedloom {

HandsetLists::HandsetLists(const std::string& workDir)
    : sent(JoinPath(workDir, "Skyfold_pc.opml")),
      received(JoinPath(workDir, "Skyfold_ppc.opml")),
      known(JoinPath(workDir, "Skyfold_known.opml")) {}

bool HasReceived(const HandsetLists& lists) {
  std::error_code ignored;
  return std::filesystem::exists(lists.received, ignored);
}

Failure WriteKnown(const HandsetLists& lists, SubscriptionList sent,
                   const SubscriptionList& received, CodePage codePage) {
  sent.insert(sent.end(), received.begin(), received.end());
  return WriteFileWhole(lists.known, BuildOpml(sent, codePage, "", OpmlEscaping::Everything));
}

}  // namespace feedloom
