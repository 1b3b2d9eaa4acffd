#include "store/TextScan.h"

#include <fmt/format.h>

#include "search/PostMatch.h"
#include "store/Connection.h"
#include "store/PostColumns.h"

namespace feedloom {
namespace {

constexpr int kPostsAtOnce = 500;

// A table of posts: what is read of it, and how its columns are named.
struct TextTable {
  const char* select;
  const char* withAuthors;  // the same where authors are kept
  const char* id;
  const char* readStatus;
  bool areSaved;
};

#define NO_AUTHORS ", '' From "
#define AUTHORS ", post_detail_authors From "
constexpr TextTable kPosts{
    "Select " POST_COLUMNS ", post_channelID" NO_AUTHORS "TB_POST Inner " JOIN_CHANNELS,
    "Select " POST_COLUMNS ", post_channelID" AUTHORS "TB_POST Inner " JOIN_CHANNELS
    " Left Join TB_POST_DETAIL On post_detail_postID = post_id",
    "post_id", "post_readStatus", false};
constexpr TextTable kSavedPosts{"Select " SCRAP_POST_COLUMNS
                                ", 0, scrap_post_scrapChannelID" NO_AUTHORS
                                "TB_SCRAP_POST Inner " JOIN_CABINETS,
                                nullptr, "scrap_post_id", "scrap_post_readStatus", true};

constexpr PostLayout kLayout{.podcast = 9, .ownerId = 10};
constexpr int kAuthorsColumn = 11;

bool Holds(const std::optional<RowKey>& within, const TextTable& table) {
  return !within || HoldsScrapPosts(within->kind) == table.areSaved;
}

std::string InRow(const std::optional<RowKey>& within) {
  if (!within) return "";
  switch (within->kind) {
    case RowKind::Folder:
      return fmt::format(" and channel_folderID = {}", within->id);
    case RowKind::Channel:
      return fmt::format(" and post_channelID = {}", within->id);
    case RowKind::Cabinet:
      return fmt::format(" and scrap_post_scrapChannelID = {}", within->id);
    case RowKind::CabinetRoot:
      break;
  }
  return "";
}

SearchedPost Texts(const PostRow& post, const std::string& authors, CodePage codePage) {
  return {.title = codePage.ToUtf8(post.title),
          .html = codePage.ToUtf8(post.description),
          .channel = codePage.ToUtf8(post.ownerTitle),
          .authors = codePage.ToUtf8(authors),
          .published = post.published};
}

struct Scan {
  Connection& connection;
  const CodePage codePage;
  const TextQuery& query;
  const ScannedPosts& posts;
  const std::stop_token& stop;
  const OnHit& onHit;

  bool Run(const TextTable& table, bool hasAuthors) {
    const std::string select =
        fmt::format("{} Where {{}}{}{} Order By {} Limit {}",
                    hasAuthors && table.withAuthors != nullptr ? table.withAuthors : table.select,
                    InRow(posts.within),
                    posts.areUnreadOnly ? fmt::format(" and {} = 0", table.readStatus) : "",
                    table.id, kPostsAtOnce);
    for (int last = 0;;) {
      if (stop.stop_requested()) return false;
      const auto rows = connection.Query(
          fmt::format(fmt::runtime(select), fmt::format("{} > {}", table.id, last)));
      if (!rows) return false;
      if (rows->Rows() == 0) return true;
      last = Take(*rows, table);
    }
  }

  // Returns the greatest id.
  int Take(const ResultTable& rows, const TextTable& table) {
    std::vector<PostRow> found;
    AppendPosts(rows, kLayout, found);
    const int last = found.back().id;
    for (int row = 0; row < rows.Rows(); ++row) {
      PostRow& post = found[static_cast<std::size_t>(row)];
      const int relevance = Relevance(query, Texts(post, rows.Text(row, kAuthorsColumn), codePage));
      post.isSaved = table.areSaved;
      if (relevance > 0) onHit(std::move(post), relevance);
    }
    return last;
  }
};

}  // namespace

bool ScanTexts(Store& store, const TextQuery& query, const ScannedPosts& posts,
               const std::stop_token& stop, const OnHit& onHit) {
  Connection connection(store);
  if (!connection) return false;
  const Connection::Operation operation(connection);
  const bool hasAuthors = HasTable(connection, "TB_POST_DETAIL");
  Scan scan{connection, store.TextCodePage(), query, posts, stop, onHit};
  for (const TextTable* const table : {&kPosts, &kSavedPosts}) {
    if (Holds(posts.within, *table) && !scan.Run(*table, hasAuthors)) return false;
  }
  return true;
}

}  // namespace feedloom
