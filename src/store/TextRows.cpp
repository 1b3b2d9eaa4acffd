#include "store/TextRows.h"

#include <fmt/format.h>

#include "search/PostMatch.h"
#include "store/PostColumns.h"
#include "store/PostDetails.h"

#define NO_AUTHORS ", '' From "
#define AUTHORS ", post_detail_authors From "

namespace feedloom {
namespace {

constexpr int kRowsAtOnce = 500;

// A table of posts: what is read of it, and how its columns are named.
struct TextTable {
  const char* select;
  const char* withAuthors;  // the same where authors are kept
  const char* id;
  const char* readStatus;
};

constexpr TextTable kTables[] = {
    {"Select " POST_COLUMNS ", post_channelID" NO_AUTHORS "TB_POST Inner " JOIN_CHANNELS,
     "Select " POST_COLUMNS ", post_channelID" AUTHORS "TB_POST Inner " JOIN_CHANNELS
     " Left Join TB_POST_DETAIL On post_detail_postID = post_id",
     "post_id", "post_readStatus"},
    {"Select " SCRAP_POST_COLUMNS ", 0, scrap_post_scrapChannelID" NO_AUTHORS
     "TB_SCRAP_POST Inner " JOIN_CABINETS,
     "Select " SCRAP_POST_COLUMNS ", 0, scrap_post_scrapChannelID" NO_AUTHORS
     "TB_SCRAP_POST Inner " JOIN_CABINETS,
     "scrap_post_id", "scrap_post_readStatus"},
};

const TextTable& TableOf(bool areSaved) { return kTables[areSaved ? 1 : 0]; }

constexpr PostLayout kSearchedLayout{.podcast = 9, .ownerId = 10};
constexpr int kAuthorsColumn = 11;

std::string RowCondition(const std::optional<RowKey>& within) {
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

SearchedPost TextsOf(const PostRow& post, const std::string& authors, CodePage codePage) {
  return {.title = codePage.ToUtf8(post.title),
          .html = codePage.ToUtf8(post.description),
          .channel = codePage.ToUtf8(post.ownerTitle),
          .authors = codePage.ToUtf8(authors),
          .published = post.published};
}

}  // namespace

const char* IdColumn(bool areSaved) { return TableOf(areSaved).id; }

TextRows::TextRows(Connection& connection, const Store& store, const TextQuery& query,
                   const SearchedRows& rows)
    : connection_(connection),
      codePage_(store.TextCodePage()),
      query_(query),
      rows_(rows),
      hasAuthors_(KeepsPostDetails(connection)) {}

std::string TextRows::Statement(bool areSaved, const std::string& condition) const {
  const TextTable& table = TableOf(areSaved);
  return fmt::format("{} Where {}{}{} Order By {} Limit {}",
                     hasAuthors_ ? table.withAuthors : table.select, condition,
                     RowCondition(rows_.within),
                     rows_.areUnreadOnly ? fmt::format(" and {} = 0", table.readStatus) : "",
                     table.id, kRowsAtOnce);
}

std::optional<int> TextRows::Read(bool areSaved, const std::string& condition, const OnHit& onHit) {
  const auto rows = connection_.Query(Statement(areSaved, condition));
  if (!rows) return std::nullopt;
  if (rows->Rows() == 0) return 0;
  std::vector<PostRow> posts;
  AppendPosts(*rows, kSearchedLayout, posts);
  const int last = posts.back().id;
  for (int row = 0; row < rows->Rows(); ++row) {
    PostRow& post = posts[static_cast<std::size_t>(row)];
    const int relevance =
        Relevance(query_, TextsOf(post, rows->Text(row, kAuthorsColumn), codePage_));
    post.isSaved = areSaved;
    if (relevance > 0) onHit(std::move(post), relevance);
  }
  return last;
}

}  // namespace feedloom
