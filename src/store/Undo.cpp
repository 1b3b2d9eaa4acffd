#include "store/Undo.h"

#include <fmt/format.h>

#include <initializer_list>
#include <string>

#include "store/PostDetails.h"

namespace feedloom {
namespace {

constexpr const char* kForget =
    "Delete From TB_UNDO_STEP;Delete From TB_UNDO_FOLDER;Delete From TB_UNDO_CHANNEL;"
    "Delete From TB_UNDO_POST;Delete From TB_UNDO_SCRAP_CHANNEL;Delete From TB_UNDO_SCRAP_POST;"
    "Delete From TB_UNDO_GONE_LINK;Delete From TB_UNDO_GONE_COUNT;Delete From TB_UNDO_OWNER;"
    "Delete From TB_UNDO_MARK;Delete From TB_UNDO_SCRAP_MARK;Delete From TB_UNDO_ID;";

// The names of posts or saved posts.
struct PostNames {
  const char* table;
  const char* kept;
  const char* marks;
  const char* prefix;  // of most columns
  const char* owner;   // the column
  const char* owners;  // the table
  const char* ownerPrefix;
  const char* sign;  // of an owner's number in TB_UNDO_OWNER, which has those of both kinds
};
constexpr PostNames kPosts{"TB_POST",        "TB_UNDO_POST", "TB_UNDO_MARK", "post",
                           "post_channelID", "TB_CHANNEL",   "channel",      ""};
constexpr PostNames kScrapPosts{"TB_SCRAP_POST",
                                "TB_UNDO_SCRAP_POST",
                                "TB_UNDO_SCRAP_MARK",
                                "scrap_post",
                                "scrap_post_scrapChannelID",
                                "TB_SCRAP_CHANNEL",
                                "scrap_channel",
                                "-"};

constexpr const PostNames& NamesOf(bool areScrapPosts) {
  return areScrapPosts ? kScrapPosts : kPosts;
}

// What to keep.

std::string WithIds(const PostNames& posts, std::span<const int> ids) {
  return fmt::format("{}_id In ({})", posts.prefix, fmt::join(ids, ","));
}

std::string PostsOfRow(const RowKey& row) {
  switch (row.kind) {
    case RowKind::Folder:
      return fmt::format(
          "post_channelID In (Select channel_id From TB_CHANNEL Where channel_folderID = {})",
          row.id);
    case RowKind::Channel:
      return fmt::format("post_channelID = {}", row.id);
    case RowKind::Cabinet:
      return fmt::format("scrap_post_scrapChannelID = {}", row.id);
    case RowKind::CabinetRoot:
      break;
  }
  return "1";
}

std::string CopyRows(const char* table, const std::string& condition) {
  return fmt::format("Insert Into TB_UNDO_{0} Select * From TB_{0} Where {1};", table, condition);
}

std::string CopyMarks(const PostNames& posts, const std::string& condition, int status) {
  return fmt::format(
      "Insert Into {marks} Select {post}_id, {owner}, {post}_link, {post}_readStatus From {table} "
      "Where {post}_readStatus <> {status} And {condition};",
      fmt::arg("marks", posts.marks), fmt::arg("post", posts.prefix),
      fmt::arg("owner", posts.owner), fmt::arg("table", posts.table), fmt::arg("status", status),
      fmt::arg("condition", condition));
}

std::string CopyOwners(const PostNames& posts) {
  return fmt::format(
      "Insert Into TB_UNDO_OWNER Select {4}{0}_id, {0}_createDate From {1} Where {0}_id In (Select "
      "{2} From {3});",
      posts.ownerPrefix, posts.owners, posts.owner, posts.kept, posts.sign);
}

// The links that are pushed out of the list of deleted posts by those of the step.
constexpr const char* kCopyOldLinks =
    "Insert Into TB_UNDO_GONE_LINK Select l.* From (Select post_channelID id, count(*) posts From "
    "TB_UNDO_POST Group By post_channelID) Join TB_GONE_COUNT On gone_count_channelID = id Join "
    "TB_GONE_LINK l On gone_channelID = id Where gone_number <= (gone_count + posts) / 1000 * 1000 "
    "- 4000;";

// Only with the tables of share/post_details.sql and of a share/undo.sql that knows them.
constexpr const char* kForgetDetails = "Delete From TB_UNDO_POST_DETAIL;";
constexpr const char* kCopyDetails =
    "Insert Into TB_UNDO_POST_DETAIL Select post_detail_postID, post_detail_authors, "
    "post_detail_categories From TB_POST_DETAIL Where post_detail_postID In (Select post_id From "
    "TB_UNDO_POST);";

bool KeepsSteps(Connection& connection) { return HasTable(connection, "TB_UNDO_STEP"); }

bool KeepsDetails(Connection& connection) {
  return KeepsPostDetails(connection) && HasTable(connection, "TB_UNDO_POST_DETAIL");
}

// Each of `counted` copies rows that are counted, `others` what belongs to them.
std::optional<KeptStep> Keep(Store& store, std::initializer_list<std::string> counted,
                             const std::string& others) {
  Connection connection(store);
  if (!connection) return std::nullopt;
  const Connection::Operation operation(connection);
  if (!KeepsSteps(connection)) return std::nullopt;
  const bool keepsDetails = KeepsDetails(connection);
  std::string copies;
  for (const std::string& copy : counted)
    copies += copy + "Update TB_UNDO_STEP Set step_rows = step_rows + changes();";
  const auto table = connection.Query(
      fmt::format("Begin Immediate;{}{}Insert Into TB_UNDO_STEP(step_rows) Values(0);{}{}{}"
                  "Select step_id, step_rows From TB_UNDO_STEP;Commit",
                  keepsDetails ? kForgetDetails : "", kForget, copies, others,
                  keepsDetails ? kCopyDetails : ""));
  if (!table || table->Int(0, 1) == 0) return std::nullopt;
  return KeptStep{table->Int(0, 0), table->Int(0, 1)};
}

// How it comes back.

// A row that is `same` (table t) takes the place of a kept one (table u).
struct RowNames {
  const char* table;
  const char* kept;
  const char* id;
  const char* same;
};
constexpr RowNames kFolders{"TB_FOLDER", "TB_UNDO_FOLDER", "folder_id",
                            "t.folder_name = u.folder_name"};
constexpr RowNames kChannels{
    "TB_CHANNEL", "TB_UNDO_CHANNEL", "channel_id",
    "t.channel_folderID = u.channel_folderID And t.channel_xmllink = u.channel_xmllink"};
constexpr RowNames kCabinets{"TB_SCRAP_CHANNEL", "TB_UNDO_SCRAP_CHANNEL", "scrap_channel_id",
                             "t.scrap_channel_title = u.scrap_channel_title"};
constexpr RowNames kPostRows{"TB_POST", "TB_UNDO_POST", "post_id",
                             "t.post_channelID = u.post_channelID And t.post_link = u.post_link"};
constexpr RowNames kScrapPostRows{
    "TB_SCRAP_POST", "TB_UNDO_SCRAP_POST", "scrap_post_id",
    "t.scrap_post_id = u.scrap_post_id And t.scrap_post_scrapChannelID = "
    "u.scrap_post_scrapChannelID And t.scrap_post_link Is u.scrap_post_link"};

// A column that holds ids of kept rows.
struct Reference {
  const char* table;
  const char* column;
};

std::string Renumber(const Reference& ids) {
  return fmt::format(
      "Update {0} Set {1} = id_now From TB_UNDO_ID Where id_former = {1} And id_now <> id_former;",
      ids.table, ids.column);
}

std::string BringBack(const RowNames& rows, std::initializer_list<Reference> references) {
  std::string sql = fmt::format(
      "Delete From TB_UNDO_ID;"
      "Insert Into TB_UNDO_ID Select u.{id}, ifnull((Select max(t.{id}) From {table} t Where "
      "{same}), iif(u.{id} In (Select {id} From {table}), (Select max({id}) From (Select max({id}) "
      "{id} From {table} Union All Select max({id}) From {kept})) + u.rowid, u.{id})) From {kept} "
      "u;",
      fmt::arg("id", rows.id), fmt::arg("table", rows.table), fmt::arg("kept", rows.kept),
      fmt::arg("same", rows.same));
  for (const Reference& reference : references) sql += Renumber(reference);
  sql += Renumber({rows.kept, rows.id});
  return sql +
         fmt::format("Insert Into {0} Select * From {1} Where {2} Not In (Select {2} From {0});",
                     rows.table, rows.kept, rows.id);
}

std::string BringBackFoldersChannelsAndCabinets() {
  return BringBack(kFolders, {{"TB_UNDO_CHANNEL", "channel_folderID"}}) +
         "Update TB_UNDO_CHANNEL Set channel_folderID = (Select folder_id From TB_FOLDER Order By "
         "folder_order, folder_id Limit 1) Where channel_folderID Not In (Select folder_id From "
         "TB_FOLDER);" +
         BringBack(kChannels, {{"TB_UNDO_POST", "post_channelID"},
                               {"TB_UNDO_GONE_LINK", "gone_channelID"},
                               {"TB_UNDO_GONE_COUNT", "gone_count_channelID"}}) +
         BringBack(kCabinets, {{"TB_UNDO_SCRAP_POST", "scrap_post_scrapChannelID"}});
}

std::string DropOrphans(const PostNames& posts) {
  return fmt::format(
      "Delete From {kept} Where {owner} Not In (Select {column}_id From {owners}) Or {owner} In "
      "(Select {column}_id From TB_UNDO_OWNER Join {owners} On {sign}{column}_id = owner_id Where "
      "{column}_createDate Is Not owner_createDate);",
      fmt::arg("kept", posts.kept), fmt::arg("owner", posts.owner),
      fmt::arg("column", posts.ownerPrefix), fmt::arg("owners", posts.owners),
      fmt::arg("sign", posts.sign));
}

// The links of deleted posts keep posts away as long as they are there. A post that was read and
// has come anew since is read.
constexpr const char* kDropOrphanDetails =
    "Delete From TB_UNDO_POST_DETAIL Where post_detail_postID Not In (Select post_id From "
    "TB_UNDO_POST);";

// A post that has come anew keeps the details that it has now.
std::string BringBackDetails() {
  return Renumber({"TB_UNDO_POST_DETAIL", "post_detail_postID"}) +
         "Insert Or Ignore Into TB_POST_DETAIL(post_detail_postID, post_detail_authors, "
         "post_detail_categories) Select * From TB_UNDO_POST_DETAIL Where post_detail_postID In "
         "(Select post_id From TB_UNDO_POST);";
}

std::string BringBackPosts(bool withDetails) {
  return DropOrphans(kPosts) + DropOrphans(kScrapPosts) + (withDetails ? kDropOrphanDetails : "") +
         "Delete From TB_GONE_LINK Where (gone_channelID, gone_link) In (Select post_channelID, "
         "post_link From TB_UNDO_POST);" +
         BringBack(kPostRows, {}) + (withDetails ? BringBackDetails() : "") +
         BringBack(kScrapPostRows, {}) +
         "Update TB_POST Set post_readStatus = u.post_readStatus From TB_UNDO_POST u Where "
         "TB_POST.post_id = u.post_id And TB_POST.post_readStatus < u.post_readStatus;"
         "Insert Or Ignore Into TB_GONE_LINK Select * From TB_UNDO_GONE_LINK Where gone_channelID "
         "In (Select channel_id From TB_CHANNEL) And Not Exists (Select 1 From TB_POST Where "
         "post_channelID = gone_channelID And post_link = gone_link);"
         "Insert Into TB_GONE_COUNT Select * From TB_UNDO_GONE_COUNT Where 1 On Conflict Do Update "
         "Set gone_count = max(gone_count, excluded.gone_count);";
}

std::string BringBackMarks(const PostNames& posts) {
  return fmt::format(
      "Update {table} Set {post}_readStatus = mark_readStatus From {marks} Where {post}_id = "
      "mark_id And {owner} = mark_ownerID And {post}_link Is mark_link;",
      fmt::arg("table", posts.table), fmt::arg("post", posts.prefix),
      fmt::arg("marks", posts.marks), fmt::arg("owner", posts.owner));
}

constexpr const char* kRowId =
    "Select coalesce((Select folder_id From TB_UNDO_FOLDER), (Select channel_id From "
    "TB_UNDO_CHANNEL), (Select scrap_channel_id From TB_UNDO_SCRAP_CHANNEL), 0);";

}  // namespace

std::optional<KeptStep> KeepMarks(Store& store, const RowKey& row, int status) {
  return Keep(store, {CopyMarks(NamesOf(HoldsScrapPosts(row.kind)), PostsOfRow(row), status)}, "");
}

std::optional<KeptStep> KeepMarks(Store& store, const PostIds& posts, int status) {
  return Keep(store,
              {CopyMarks(kPosts, WithIds(kPosts, posts.posts), status),
               CopyMarks(kScrapPosts, WithIds(kScrapPosts, posts.saved), status)},
              "");
}

std::optional<KeptStep> KeepPosts(Store& store, const PostIds& posts) {
  return Keep(store,
              {CopyRows("POST", WithIds(kPosts, posts.posts)),
               CopyRows("SCRAP_POST", WithIds(kScrapPosts, posts.saved))},
              CopyOwners(kPosts) + CopyOwners(kScrapPosts) + kCopyOldLinks);
}

std::optional<KeptStep> KeepRow(Store& store, const RowKey& row) {
  const bool isFolder = row.kind == RowKind::Folder;
  if (row.kind == RowKind::Cabinet) {
    return Keep(store, {CopyRows("SCRAP_CHANNEL", fmt::format("scrap_channel_id = {}", row.id))},
                CopyRows("SCRAP_POST", PostsOfRow(row)));
  }
  const std::string channels =
      CopyRows("CHANNEL", fmt::format("channel_{} = {}", isFolder ? "folderID" : "id", row.id));
  const std::string contents =
      CopyRows("POST", PostsOfRow(row)) +
      CopyRows("GONE_LINK", "gone_channelID In (Select channel_id From TB_UNDO_CHANNEL)") +
      CopyRows("GONE_COUNT", "gone_count_channelID In (Select channel_id From TB_UNDO_CHANNEL)");
  if (!isFolder) return Keep(store, {channels}, contents);
  return Keep(store, {CopyRows("FOLDER", fmt::format("folder_id = {}", row.id))},
              channels + contents);
}

Undone UndoStep(Store& store, int stepId) {
  Connection connection(store);
  if (!connection) return {};
  const Connection::Operation operation(connection);
  const auto kept = QueryNumber(
      connection, fmt::format("Select count(*) From TB_UNDO_STEP Where step_id = {}", stepId));
  if (!kept) return {};
  if (*kept == 0) return {Undone::Result::kNotKept};
  const bool keepsDetails = KeepsDetails(connection);
  // The connection goes after a failure, which takes the transaction back.
  const auto table = connection.Query("Begin Immediate;" + BringBackFoldersChannelsAndCabinets() +
                                      BringBackPosts(keepsDetails) + BringBackMarks(kPosts) +
                                      BringBackMarks(kScrapPosts) + kRowId + kForget +
                                      (keepsDetails ? kForgetDetails : "") + "Commit");
  if (!table) return {};
  return {Undone::Result::kDone, table->Int(0, 0)};
}

void ForgetUndoStep(Store& store) {
  Connection connection(store);
  if (!connection) return;
  const Connection::Operation operation(connection);
  if (!KeepsSteps(connection)) return;
  if (QueryNumber(connection, "Select count(*) From TB_UNDO_STEP").value_or(0) == 0) return;
  connection.Execute(std::string("Begin Immediate;") + kForget +
                     (KeepsDetails(connection) ? kForgetDetails : "") + "Commit");
}

}  // namespace feedloom
