#include "shell/TextIndexer.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "store/TextIndex.h"
#include "threads/ThreadPriority.h"

namespace feedloom {
namespace {

constexpr std::chrono::seconds kBeforeWork(3);
constexpr std::chrono::minutes kBetweenLooks(1);  // what comes without a refresh waits so long
constexpr std::chrono::seconds kBeforeProgress(3);
constexpr std::chrono::seconds kBetweenProgress(1);

void IndexAll(Store& store, const std::stop_token& stop,
              const TextIndexer::OnProgress& onProgress) {
  const auto state = ReadIndexState(store);
  if (!state) return;
  const int waiting = std::max(state->waiting, 1);
  int indexed = 0;
  auto nextProgress = store.GetClock().SteadyNow() + kBeforeProgress;
  bool isTold = false;
  while (!stop.stop_requested()) {
    const int more = IndexSomeTexts(store).value_or(0);
    if (more == 0) break;
    indexed += more;
    if (store.GetClock().SteadyNow() < nextProgress) continue;
    nextProgress += kBetweenProgress;
    isTold = true;
    onProgress(std::min(99, static_cast<int>(100LL * indexed / waiting)));
  }
  if (isTold) onProgress(100);
}

}  // namespace

TextIndexer::TextIndexer(std::shared_ptr<Store> store, BackgroundJobs::Post toOwner,
                         OnProgress onProgress)
    : store_(std::move(store)), onProgress_(std::move(onProgress)), jobs_(std::move(toOwner)) {
  delay_.setSingleShot(true);
  delay_.callOnTimeout([this] { Run(); });
}

void TextIndexer::Start() { delay_.start(kBeforeWork); }

void TextIndexer::Stop() {
  delay_.stop();
  jobs_.StopAll();
}

void TextIndexer::Run() {
  const auto lookAgain = [this] { delay_.start(kBetweenLooks); };
  const auto job = [lookAgain, store = store_, onProgress = onProgress_](
                       const std::stop_token& stop, const BackgroundJobs::Tell& tell) {
    LowerThreadPriority();
    IndexAll(*store, stop, [&](int percent) { tell([=] { onProgress(percent); }); });
    tell(lookAgain);
  };
  jobs_.Start(job, lookAgain);
}

}  // namespace feedloom
