#include "ctl/TextHits.h"

#include <fmt/core.h>
#include <unistd.h>

#include <limits>

#include "ctl/IndexTexts.h"
#include "ctl/Session.h"
#include "search/TextQuery.h"
#include "store/TextSearch.h"

namespace feedloom {
namespace {

// Of what is unread, or since a day, among the hits there may be few: all of them are needed.
std::size_t Most(const PostsOptions& options) {
  constexpr std::size_t kAll = std::numeric_limits<int>::max();
  return options.unread || options.since ? kAll : options.limit.value_or(kAll);
}

bool IsWritable(const Store& store) { return access(store.DbPath().c_str(), W_OK) == 0; }

}  // namespace

std::string QueryFaultWords(std::string_view query) {
  switch (ParseTextQuery(query).fault) {
    case QueryFault::kNone:
      return "";
    case QueryFault::kNothing:
      return "the query has no word to look for";
    case QueryFault::kTooManyWords:
      return fmt::format("the query has more than {} words", kMostQueryPieces);
    case QueryFault::kDate:
      return "no year, month or day (2006, 2006-05, 2006-05-17) follows since: or until:";
  }
  return "";
}

bool LoadTextHits(Session& session, const PostsOptions& options, const std::optional<RowKey>& row,
                  std::vector<PostRow>& out) {
  if (IsWritable(session.GetStore())) IndexTexts(session);
  const auto order = options.byDate ? HitOrder::kDate : HitOrder::kRelevance;
  auto hits = SearchTexts(session.GetStore(), {*options.text, row, order, Most(options)});
  if (!hits) return false;
  out = std::move(hits->posts);
  return true;
}

}  // namespace feedloom
