#include "store/Posts.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <unordered_set>
#include <utility>

#include "store/Connection.h"
#include "store/IdStatement.h"
#include "store/PostColumns.h"
#include "store/PostDetails.h"
#include "store/SqlText.h"

// The columns that ReadChannelFields and ReadCabinetFields read.
#define CHANNEL_DETAILS                                                                     \
  "channel_createDate, channel_htmllink, channel_title, channel_type, channel_updateDate, " \
  "channel_xmllink"
#define CABINET_DETAILS "scrap_channel_createDate, scrap_channel_title, scrap_channel_updateDate"

namespace feedloom {
namespace {

// Fills the channel's fields from the first row of `table`, in which they begin at column `first`.
void ReadChannelFields(const ResultTable& table, int first, ChannelWithPosts& out) {
  if (table.Rows() == 0) return;
  out.folderId = table.Int(0, first);
  out.created = table.Text(0, first + 1);
  out.htmlLink = table.Text(0, first + 2);
  out.title = table.Text(0, first + 3);
  out.type = table.Text(0, first + 4);
  out.updated = table.Text(0, first + 5);
  out.xmlLink = table.Text(0, first + 6);
}

void ReadCabinetFields(const ResultTable& table, int first, CabinetWithPosts& out) {
  if (table.Rows() == 0) return;
  out.created = table.Text(0, first);
  out.title = table.Text(0, first + 1);
  out.updated = table.Text(0, first + 2);
}

// Runs `containerSql` and `postsSql` on one connection: read(table) gets the rows of the first, and
// the rows of the second are appended to `posts`. Returns false when one of them fails.
template <typename Read>
bool LoadContainer(Store& store, const std::string& containerSql, Read read,
                   const std::string& postsSql, const PostLayout& layout,
                   std::vector<PostRow>& posts) {
  Connection connection(store);
  if (!connection) return false;
  {
    const auto container = connection.Query(containerSql);
    if (!container) return false;
    read(*container);
  }
  const auto table = connection.Query(postsSql);
  if (!table) return false;
  AppendPosts(*table, layout, posts);
  return true;
}

using Links = std::unordered_set<std::string>;

// The links that the channel holds; none after a failure.
std::optional<Links> LinksOf(Connection& connection, int channelId) {
  const auto table = connection.Query(
      FormatSql("Select post_link From TB_POST Where post_channelID = %d and post_link is not null",
                channelId));
  if (!table) return std::nullopt;
  Links links;
  for (int row = 0; row < table->Rows(); ++row) links.insert(table->Text(row, 0));
  return links;
}

// The link is asked for again, because another program may have stored the post meanwhile.
std::string InsertStatement(int channelId, const NewPost& post) {
  return FormatSql(
      "Insert Into TB_POST(post_channelID, post_title, post_link, post_pubDate, post_Desc, "
      "post_ispodcast) Select %d, '%s', '%s', '%s', '%s', %d Where not exists (Select post_id "
      "From TB_POST Where post_channelID = %d and post_link = '%s');",
      channelId, post.title, post.link, post.published, post.description, post.isPodcast, channelId,
      post.link);
}

// The posts of one transaction: few enough that other threads and programs wait only a moment, and
// that a stop comes soon.
struct Slice {
  void Add(int channelId, const NewPost& post) {
    statements.push_back(InsertStatement(channelId, post));
    size += statements.back().size();
    posts.push_back(&post);
  }
  bool IsFull() const { return statements.size() >= 50 || size >= (256u << 10); }
  bool HasDetails() const {
    return std::ranges::any_of(posts, [](auto* post) { return !post->details.AreEmpty(); });
  }

  std::vector<std::string> statements;
  std::vector<const NewPost*> posts;
  std::size_t size = 0;
};

}  // namespace

bool LoadChannelWithPosts(Store& store, int channelId, ChannelWithPosts& out) {
  const bool loaded = LoadContainer(
      store,
      FormatSql("Select channel_folderID, " CHANNEL_DETAILS
                " From TB_CHANNEL Where channel_id = %d",
                channelId),
      [&](const ResultTable& table) {
        out.id = channelId;
        ReadChannelFields(table, 0, out);
      },
      FormatSql("Select " POST_COLUMNS " From TB_POST " JOIN_CHANNELS
                " Where post_channelId = %d Order By channel_order Asc, post_pubDate desc, "
                "post_title Asc",
                channelId),
      {.podcast = 9}, out.posts);
  for (PostRow& post : out.posts) post.ownerId = channelId;
  return loaded;
}

bool LoadFolderWithPosts(Store& store, int folderId, ChannelWithPosts& out) {
  return LoadContainer(
      store,
      FormatSql("Select channel_id, channel_folderID, " CHANNEL_DETAILS
                " From TB_CHANNEL Where channel_folderID = %d  Order By channel_order",
                folderId),
      [&](const ResultTable& table) { ReadChannelFields(table, 1, out); },
      FormatSql("Select channel_id, " POST_COLUMNS " From TB_POST " JOIN_CHANNELS
                " Where channel_folderID = %d Order By channel_order Asc, post_pubDate Desc, "
                "post_title Asc",
                folderId),
      {.first = 1, .podcast = 10, .ownerId = 0}, out.posts);
}

bool LoadCabinetWithPosts(Store& store, int cabinetId, CabinetWithPosts& out) {
  const bool loaded = LoadContainer(
      store,
      FormatSql("Select " CABINET_DETAILS
                ", scrap_channel_order From TB_SCRAP_CHANNEL Where scrap_channel_id = %d",
                cabinetId),
      [&](const ResultTable& table) {
        ReadCabinetFields(table, 0, out);
        if (table.Rows() > 0) out.order = table.Int(0, 3);
      },
      FormatSql("Select " SCRAP_POST_COLUMNS " From TB_SCRAP_POST " JOIN_CABINETS
                " Where scrap_post_scrapChannelId = %d Order By scrap_channel_order Asc, "
                "scrap_post_pubDate desc, scrap_post_title Asc",
                cabinetId),
      {}, out.posts);
  for (PostRow& post : out.posts) post.ownerId = cabinetId;
  return loaded;
}

bool LoadAllCabinetsWithPosts(Store& store, CabinetWithPosts& out) {
  return LoadContainer(
      store,
      "Select scrap_channel_id, " CABINET_DETAILS
      " From TB_SCRAP_CHANNEL Order By scrap_channel_order",
      [&](const ResultTable& table) { ReadCabinetFields(table, 1, out); },
      "Select scrap_channel_id, " SCRAP_POST_COLUMNS " From TB_SCRAP_POST " JOIN_CABINETS
      " Order By scrap_channel_order Asc, scrap_post_pubDate Desc, scrap_post_title Asc",
      {.first = 1, .ownerId = 0}, out.posts);
}

bool FindPost(Store& store, int postId, std::vector<PostRow>& out) {
  const auto table = QueryOnce(
      store, FormatSql("Select " POST_COLUMNS ", post_channelID From TB_POST Inner " JOIN_CHANNELS
                       " Where post_id = %d",
                       postId));
  if (table) AppendPosts(*table, {.podcast = 9, .ownerId = 10}, out);
  return table.has_value();
}

bool FindPosts(Store& store, std::span<const int> ids, bool areScrapPosts,
               std::vector<PostRow>& out) {
  const std::string areIn = fmt::format("_id In ({}) Order By ", fmt::join(ids, ","));
  const std::string posts = "Select " POST_COLUMNS
                            ", post_channelID From TB_POST Inner " JOIN_CHANNELS " Where post" +
                            areIn + "post_pubDate desc, post_title asc";
  const std::string saved = "Select " SCRAP_POST_COLUMNS
                            ", scrap_channel_id From TB_SCRAP_POST Inner " JOIN_CABINETS
                            " Where scrap_post" +
                            areIn + "scrap_post_pubDate desc, scrap_post_title asc";
  const auto table = QueryOnce(store, areScrapPosts ? saved : posts);
  const PostLayout layout{.podcast = 9, .ownerId = 10};
  if (table) AppendPosts(*table, areScrapPosts ? PostLayout{.ownerId = 9} : layout, out);
  return table.has_value();
}

Changes InsertChannelPosts(Connection& connection, const ChannelRecord& record,
                           std::stop_token stop) {
  auto known = LinksOf(connection, record.id);
  if (!known) return {.failed = static_cast<int>(record.posts.size())};
  std::optional<bool> keepsDetails;  // asked once there is something to keep
  Changes all;
  Slice slice;
  const auto store = [&] {
    const Slice full = std::exchange(slice, {});
    if (!keepsDetails && full.HasDetails()) keepsDetails = KeepsPostDetails(connection);
    const Changes changes = connection.ExecuteTogether(
        full.statements, keepsDetails.value_or(false) ? DetailsOf(full.posts) : Companions());
    all.rows += changes.rows;
    all.failed += changes.failed;
    all.inserted.insert(all.inserted.end(), changes.inserted.begin(), changes.inserted.end());
  };
  for (const NewPost& post : record.posts) {
    if (known->contains(UnescapeEntities(post.writtenLink)) && !post.writtenLink.empty()) continue;
    if (!known->insert(UnescapeEntities(post.link)).second) continue;
    if (stop.stop_requested()) {
      ++all.failed;
      continue;
    }
    slice.Add(record.id, post);
    if (slice.IsFull()) store();
  }
  if (!slice.statements.empty()) store();
  return all;
}

bool DeletePosts(Store& store, std::span<const int> postIds) {
  return ExecuteForIds(store, "Delete From TB_POST", " post_id = %d", "", postIds);
}

bool DeleteScrapPosts(Store& store, std::span<const int> scrapPostIds) {
  return ExecuteForIds(store, "Delete From TB_SCRAP_POST", " scrap_post_id = %d", "", scrapPostIds);
}

std::optional<int> DeleteOldPosts(Store& store, int days) {
  Connection connection(store);
  const std::string sql = FormatSql(
      "Delete From TB_POST where ABS(JULIANDAY('now') - JULIANDAY(post_createdate)) >= %d", days);
  if (!connection || !connection.Execute(sql)) return std::nullopt;
  return connection.ChangedRows();
}

}  // namespace feedloom
