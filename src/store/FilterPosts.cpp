#include "store/FilterPosts.h"

#include <fmt/format.h>

#include <algorithm>
#include <functional>
#include <map>

#include "filter/FilterSet.h"
#include "store/Cabinets.h"
#include "store/Connection.h"
#include "store/PostColumns.h"
#include "store/Posts.h"
#include "store/ReadStatus.h"

namespace feedloom {
namespace {

constexpr int kPostsAStep = 500;

constexpr PostLayout kFilteredLayout{.podcast = 9};
constexpr int kFolderColumn = 10;
constexpr char kSelect[] =
    "Select " POST_COLUMNS ", folder_name, channel_xmllink, {} From TB_POST Inner " JOIN_CHANNELS
    " Inner Join TB_FOLDER On folder_id = channel_folderID {}Where post_id > {} "
    "Order By post_id Limit {}";
constexpr char kDetails[] = "post_detail_authors, post_detail_categories";
constexpr char kJoinDetails[] = "Left Join TB_POST_DETAIL On post_detail_postID = post_id ";

FilteredPost Texts(const PostRow& post, const ResultTable& rows, int row, CodePage codePage) {
  const auto text = [&](int column) { return codePage.ToUtf8(rows.Text(row, column)); };
  return {.folder = text(kFolderColumn),
          .channel = text(kFolderColumn + 1),
          .title = codePage.ToUtf8(post.title),
          .html = codePage.ToUtf8(post.description),
          .link = codePage.ToUtf8(post.link),
          .authors = text(kFolderColumn + 2),
          .categories = text(kFolderColumn + 3)};
}

struct MetPost {
  PostRow post;
  FilterDeeds deeds;
};

// Calls `onStep` with those of some hundred posts that rules are met by, until all posts were read.
// Returns false after a failure, also of `onStep`, and when `stop` was requested.
bool ForEachStep(Store& store, const FilterSet& rules, const std::stop_token& stop,
                 const std::function<bool(std::vector<MetPost> met)>& onStep) {
  Connection connection(store);
  if (!connection) return false;
  const Connection::Operation operation(connection);
  const bool hasDetails = HasTable(connection, "TB_POST_DETAIL");
  for (int last = 0; !stop.stop_requested();) {
    const auto rows =
        connection.Query(fmt::format(kSelect, hasDetails ? kDetails : "'', ''",
                                     hasDetails ? kJoinDetails : "", last, kPostsAStep));
    if (!rows) return false;
    std::vector<PostRow> posts;
    AppendPosts(*rows, kFilteredLayout, posts);
    if (posts.empty()) return true;
    last = posts.back().id;
    std::vector<MetPost> met;
    for (int row = 0; row < rows->Rows() && !stop.stop_requested(); ++row) {
      PostRow& post = posts[static_cast<std::size_t>(row)];
      FilterDeeds deeds = rules.DeedsFor(Texts(post, *rows, row, store.TextCodePage()));
      if (deeds.isMet) met.push_back({std::move(post), std::move(deeds)});
    }
    if (stop.stop_requested() || !onStep(std::move(met))) return false;
  }
  return false;
}

using CabinetIds = std::map<std::string, int>;  // by their titles in UTF-8

std::optional<CabinetIds> ReadCabinetIds(Store& store) {
  std::vector<CabinetRow> cabinets;
  if (!LoadCabinetList(store, cabinets)) return std::nullopt;
  CabinetIds ids;
  for (const CabinetRow& row : cabinets)
    ids.emplace(store.TextCodePage().ToUtf8(row.title), row.id);
  return ids;
}

std::map<int, std::vector<PostRow>> CopiesOf(Store& store, const std::vector<MetPost>& met,
                                             const CabinetIds& cabinets) {
  std::map<int, std::vector<PostRow>> copies;
  for (const auto& [post, deeds] : met) {
    for (const std::string& title : deeds.cabinets) {
      const auto cabinet = cabinets.find(title);
      if (cabinet == cabinets.end()) continue;
      if (ScrapPostLinkExists(store, cabinet->second, post.link)) continue;
      copies[cabinet->second].push_back(post);
    }
  }
  return copies;
}

template <typename Deed>
std::vector<int> IdsFor(const std::vector<MetPost>& met, Deed deed) {
  std::vector<int> ids;
  for (const MetPost& one : met) {
    if (deed(one)) ids.push_back(one.post.id);
  }
  return ids;
}

// Returns false after a failure.
bool Apply(Store& store, const std::vector<MetPost>& met, const CabinetIds& cabinets,
           FilterSums& sums) {
  for (const auto& [cabinet, posts] : CopiesOf(store, met, cabinets)) {
    const int saved = InsertScrapPosts(store, cabinet, posts).value_or(0);
    sums.saved += saved;
    if (saved < static_cast<int>(posts.size())) return false;
  }
  const auto gone = IdsFor(met, [](const MetPost& one) { return one.deeds.deletes; });
  const auto read = IdsFor(
      met, [](const MetPost& one) { return one.deeds.marksRead && one.post.readStatus == 0; });
  // An empty list would stand for all posts.
  if (!gone.empty() && !DeletePosts(store, gone)) return false;
  sums.deleted += static_cast<int>(gone.size());
  if (!read.empty() && !MarkPostsRead(store, 1, read)) return false;
  sums.read += static_cast<int>(read.size());
  return true;
}

}  // namespace

std::optional<int> CountFiltered(Store& store, const FilterRule& rule,
                                 const std::stop_token& stop) {
  FilterRule on = rule;
  on.isOn = true;
  int count = 0;
  const bool isDone =
      ForEachStep(store, FilterSet({&on, 1}), stop, [&](const std::vector<MetPost>& met) {
        count += static_cast<int>(met.size());
        return true;
      });
  return isDone ? std::optional(count) : std::nullopt;
}

std::optional<FilterSums> ApplyFilters(Store& store, std::span<const FilterRule> rules,
                                       const std::stop_token& stop) {
  const auto cabinets = ReadCabinetIds(store);
  if (!cabinets) return std::nullopt;
  FilterSums sums;
  const bool isDone = ForEachStep(
      store, FilterSet(rules), stop,
      [&](const std::vector<MetPost>& met) { return Apply(store, met, *cabinets, sums); });
  return isDone ? std::optional(sums) : std::nullopt;
}

}  // namespace feedloom
