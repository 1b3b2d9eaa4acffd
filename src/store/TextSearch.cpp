#include "store/TextSearch.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <tuple>

#include "search/Terms.h"
#include "store/IndexedSearch.h"
#include "store/TextIndex.h"
#include "store/TextScan.h"

namespace feedloom {
namespace {

struct Hit {
  int relevance;
  PostRow post;
};

// The first of all hits in an order.
class BestHits {
 public:
  BestHits(HitOrder order, std::size_t most) : order_(order), most_(most) {}

  void Add(PostRow post, int relevance) {
    hits_.push_back({order_ == HitOrder::kDate ? 0 : relevance, std::move(post)});
    if (hits_.size() >= 2 * most_ + 2) DropLast();
  }

  TextHits Take() {
    std::ranges::sort(hits_, IsBefore);
    TextHits found{.hasMore = hasMore_ || hits_.size() > most_};
    for (Hit& hit : hits_) {
      if (found.posts.size() < most_) found.posts.push_back(std::move(hit.post));
    }
    return found;
  }

 private:
  // Of equal ones the newer is the better.
  static bool IsBefore(const Hit& a, const Hit& b) {
    return std::tie(a.relevance, a.post.published, b.post.isSaved, a.post.id) >
           std::tie(b.relevance, b.post.published, a.post.isSaved, b.post.id);
  }

  void DropLast() {
    const auto end = hits_.begin() + static_cast<std::ptrdiff_t>(most_);
    std::ranges::nth_element(hits_, end, IsBefore);
    hits_.erase(end, hits_.end());
    hasMore_ = true;
  }

  HitOrder order_;
  std::size_t most_;
  std::vector<Hit> hits_;
  bool hasMore_ = false;
};

bool ScanAll(Store& store, const TextQuery& query, const SearchedRows& rows,
             const std::stop_token& stop, const OnHit& onHit) {
  Connection connection(store);
  if (!connection) return false;
  TextRows texts(connection, store, query, rows);
  return ScanTexts(texts, rows, ScannedTexts::kAll, stop, onHit);
}

// Takes the hits of a search, which may begin anew.
struct Taker {
  OnHit take;
  std::function<void()> forget;  // forgets what was taken
};

enum class Outcome { kFailed, kDone, kDoneWithoutIndex };

Outcome Find(Store& store, const TextQuery& query, const SearchedRows& rows,
             const std::vector<std::string>& expressions, std::size_t most,
             const std::stop_token& stop, const Taker& taker) {
  bool isDamaged = false;
  if (!expressions.empty() && KeepsTextIndex(store)) {
    const IndexAnswer answer =
        SearchIndex(store, {query, rows, expressions, most}, stop, taker.take);
    if (answer != IndexAnswer::kDamaged)
      return answer == IndexAnswer::kDone ? Outcome::kDone : Outcome::kFailed;
    isDamaged = true;
    taker.forget();
  }
  if (!ScanAll(store, query, rows, stop, taker.take)) return Outcome::kFailed;
  if (!isDamaged) return Outcome::kDone;
  EmptyTextIndex(store);
  return Outcome::kDoneWithoutIndex;
}

}  // namespace

std::optional<TextHits> SearchTexts(Store& store, const TextSearch& search, std::stop_token stop) {
  const TextQuery query = ParseTextQuery(search.query);
  if (query.fault != QueryFault::kNone) return TextHits{};
  std::vector<std::string> expressions = TermExpressions(query);
  if (search.order == HitOrder::kDate && !expressions.empty()) expressions = {expressions.back()};
  BestHits best(search.order, search.most);
  const Outcome outcome =
      Find(store, query, {.within = search.within}, expressions, search.most, stop,
           {[&](PostRow post, int relevance) { best.Add(std::move(post), relevance); },
            [&] { best = BestHits(search.order, search.most); }});
  if (outcome == Outcome::kFailed) return std::nullopt;
  TextHits hits = best.Take();
  hits.wasDamaged = outcome == Outcome::kDoneWithoutIndex;
  return hits;
}

std::optional<int> CountUnreadHits(Store& store, const TextSearch& search, std::stop_token stop) {
  const TextQuery query = ParseTextQuery(search.query);
  int count = 0;
  if (query.fault != QueryFault::kNone) return count;
  std::vector<std::string> expressions = TermExpressions(query);
  if (!expressions.empty()) expressions = {expressions.back()};
  const Outcome outcome = Find(store, query, {.within = search.within, .areUnreadOnly = true},
                               expressions, std::numeric_limits<std::size_t>::max(), stop,
                               {[&](const PostRow&, int) { ++count; }, [&] { count = 0; }});
  if (outcome == Outcome::kFailed) return std::nullopt;
  return count;
}

}  // namespace feedloom
