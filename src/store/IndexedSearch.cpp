#include "store/IndexedSearch.h"

#include <algorithm>
#include <functional>
#include <set>
#include <utility>

#include "store/TextCandidates.h"
#include "store/TextScan.h"

namespace feedloom {
namespace {

class Run {
 public:
  Run(Store& store, const IndexedSearch& search, const std::stop_token& stop, const OnHit& onHit)
      : search_(search),
        stop_(stop),
        onHit_(onHit),
        connection_(store),
        index_(store, [this](std::string_view message) { failure_ = message; }),
        texts_(connection_, store, search.query, search.rows) {}

  // Texts that wait are read first, so that one that is indexed meanwhile is not missed.
  IndexAnswer Answer() {
    if (!connection_ || !index_) return IndexAnswer::kNotDone;
    if (!ScanTexts(texts_, search_.rows, ScannedTexts::kWaiting, stop_,
                   [this](PostRow post, int relevance) { Take(std::move(post), relevance); }))
      return IndexAnswer::kNotDone;
    found_ = 0;  // any of those may be less than the last one of the index
    for (const std::string& expression : search_.expressions) {
      const IndexAnswer answer = RunOne(expression);
      if (answer != IndexAnswer::kDone || found_ > search_.most) return answer;
    }
    return IndexAnswer::kDone;
  }

 private:
  IndexAnswer RunOne(const std::string& expression) {
    for (std::optional<int> before;;) {
      auto candidates = FindCandidates(index_, expression, search_.query, search_.rows, before);
      if (!candidates) return FailureAnswer();
      if (candidates->empty()) return IndexAnswer::kDone;
      before = candidates->back().doc;
      std::erase_if(*candidates, [this](const Candidate& candidate) {
        return !seen_.insert({candidate.isSaved, candidate.postId}).second;
      });
      std::ranges::stable_sort(*candidates, std::ranges::greater(), &Candidate::published);
      const bool isRead =
          ReadCandidates(texts_, *candidates, stop_, [this](PostRow post, int relevance) {
            onHit_(std::move(post), relevance);
            return ++found_ <= search_.most;
          });
      if (!isRead) return IndexAnswer::kNotDone;
      if (found_ > search_.most) return IndexAnswer::kDone;
    }
  }

  IndexAnswer FailureAnswer() const {
    return MeansLocked(failure_) ? IndexAnswer::kNotDone : IndexAnswer::kDamaged;
  }

  void Take(PostRow post, int relevance) {
    if (seen_.insert({post.isSaved, post.id}).second) onHit_(std::move(post), relevance);
  }

  const IndexedSearch& search_;
  const std::stop_token& stop_;
  const OnHit& onHit_;
  std::string failure_;
  Connection connection_;
  Connection index_;
  TextRows texts_;
  std::set<std::pair<bool, int>> seen_;
  std::size_t found_ = 0;
};

}  // namespace

IndexAnswer SearchIndex(Store& store, const IndexedSearch& search, const std::stop_token& stop,
                        const OnHit& onHit) {
  return Run(store, search, stop, onHit).Answer();
}

}  // namespace feedloom
