#include "ctl/IndexTexts.h"

#include <fmt/core.h>

#include <algorithm>
#include <chrono>

#include "ctl/ProgressLine.h"
#include "ctl/Session.h"
#include "store/TextIndex.h"

namespace feedloom {
namespace {

constexpr std::chrono::seconds kUntold(1);  // a user waits so long without wondering

}  // namespace

std::optional<int> IndexTexts(Session& session) {
  Store& store = session.GetStore();
  const std::optional<IndexState> state = ReadIndexState(store);
  if (!state) return std::nullopt;
  if (state->waiting == 0) return 0;
  const auto began = std::chrono::steady_clock::now();
  const ProgressLine line(!session.WantsJson());
  int done = 0;
  std::optional<int> some;
  while ((some = IndexSomeTexts(store)).value_or(0) > 0) {
    done += *some;
    if (std::chrono::steady_clock::now() - began < kUntold) continue;
    line.Show(fmt::format("{} of {} texts indexed", done, std::max(done, state->waiting)));
  }
  line.Wipe();
  return some ? std::optional(done) : std::nullopt;
}

}  // namespace feedloom
