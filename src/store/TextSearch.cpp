#include "store/TextSearch.h"

#include <algorithm>
#include <tuple>

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

  const HitOrder order_;
  const std::size_t most_;
  std::vector<Hit> hits_;
  bool hasMore_ = false;
};

}  // namespace

std::optional<TextHits> SearchTexts(Store& store, const TextSearch& search, std::stop_token stop) {
  const TextQuery query = ParseTextQuery(search.query);
  if (query.fault != QueryFault::kNone) return TextHits{};
  BestHits best(search.order, search.most);
  const bool isDone =
      ScanTexts(store, query, {.within = search.within}, stop,
                [&best](PostRow post, int relevance) { best.Add(std::move(post), relevance); });
  if (!isDone) return std::nullopt;
  return best.Take();
}

std::optional<int> CountUnreadHits(Store& store, const TextSearch& search, std::stop_token stop) {
  const TextQuery query = ParseTextQuery(search.query);
  int count = 0;
  if (query.fault != QueryFault::kNone) return count;
  const bool isDone = ScanTexts(store, query, {.within = search.within, .areUnreadOnly = true},
                                stop, [&count](const PostRow&, int) { ++count; });
  if (!isDone) return std::nullopt;
  return count;
}

}  // namespace feedloom
