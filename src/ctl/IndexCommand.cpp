// feedloomctl index: fills the index of texts, or begins it again.
#include <fmt/core.h>

#include "ctl/Commands.h"
#include "ctl/IndexTexts.h"
#include "ctl/Output.h"
#include "ctl/Session.h"
#include "store/TextIndex.h"

namespace feedloom {
namespace {

void PrintState(const Session& session, int added, const IndexState& state) {
  if (session.WantsJson()) {
    PrintJson({{"added", added}, {"indexed", state.indexed}, {"waiting", state.waiting}});
  } else {
    PrintLine(fmt::format("added {}; {} indexed, {} waiting", Counted(added, "text"), state.indexed,
                          state.waiting));
  }
}

}  // namespace

int RunIndex(Session& session, const IndexOptions& options) {
  Store& store = session.GetStore();
  if (!KeepsTextIndex(store)) {
    PrintError("the database keeps no index of its texts; a search reads them all");
    return kFailure;
  }
  if (options.rebuild && !EmptyTextIndex(store)) return kFailure;
  const std::optional<int> added = IndexTexts(session);
  const std::optional<IndexState> state = ReadIndexState(store);
  if (!added || !state) return kFailure;
  PrintState(session, *added, *state);
  return session.Finish(kSuccess);
}

}  // namespace feedloom
