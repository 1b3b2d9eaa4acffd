// feedloomctl posts: lists the posts of a channel, a folder or a cabinet, or some of them.
#include <fmt/core.h>

#include <algorithm>

#include "ctl/Commands.h"
#include "ctl/Output.h"
#include "ctl/Selection.h"
#include "ctl/Session.h"
#include "ctl/Since.h"
#include "ctl/TextHits.h"
#include "store/PostLists.h"
#include "store/Search.h"
#include "threads/Clock.h"

namespace feedloom {
namespace {

using PostRows = std::vector<PostRow>;

std::optional<RowKey> RowOf(const PostsOptions& options) {
  if (options.channel) return RowKey{RowKind::Channel, *options.channel};
  if (options.folder) return RowKey{RowKind::Folder, *options.folder};
  if (options.cabinet) return RowKey{RowKind::Cabinet, *options.cabinet};
  return std::nullopt;
}

// Prints an error when it is not.
bool IsThere(Store& store, const RowKey& row) {
  if (row.kind == RowKind::Channel) return FindChannel(store, row.id).has_value();
  if (row.kind == RowKind::Folder) return FindFolder(store, row.id).has_value();
  return FindCabinet(store, row.id).has_value();
}

bool LoadToday(Store& store, const std::optional<RowKey>& folder, PostRows& out) {
  return folder ? LoadFolderTodayUnread(store, folder->id, out) : LoadTodayUnread(store, out);
}

bool Load(Session& session, const PostsOptions& options, PostRows& out) {
  Store& store = session.GetStore();
  const std::optional<RowKey> row = RowOf(options);
  if (row && !IsThere(store, *row)) return false;
  if (options.text) return LoadTextHits(session, options, row, out);
  if (options.today) return LoadToday(store, row, out);
  const std::string word = session.Text(options.word.value_or(""));
  if (!row) return SearchPosts(store, word, out);
  return options.word ? SearchPosts(store, *row, word, out) : LoadPosts(store, *row, out);
}

// A post without a date of its feed counts by the one of the store.
std::string_view DateOf(const PostRow& post) {
  return post.published.empty() ? post.created : post.published;
}

// Leaves those posts that `options` ask for.
void Narrow(PostRows& posts, const PostsOptions& options) {
  const std::string since =
      options.since ? SinceDate(*options.since, SystemClock().Now()).value_or("") : "";
  std::erase_if(posts, [&](const PostRow& post) {
    return (options.unread && post.readStatus != 0) || DateOf(post) < since;
  });
  if (options.limit) posts.resize(std::min(posts.size(), *options.limit));
}

Json PostJson(const Session& session, const PostRow& post) {
  return {{"id", post.id},
          {"saved", post.isSaved},
          {"title", session.Utf8(post.title)},
          {"link", session.Utf8(post.link)},
          {"date", session.Utf8(post.published)},
          {"channel", session.Utf8(post.ownerTitle)},
          {"read", post.readStatus != 0},
          {"podcast", post.isPodcast != 0},
          {"description", session.Utf8(post.description)}};
}

void PrintPost(const Session& session, const PostRow& post) {
  PrintLine(fmt::format("{:>6} {} {:19} {} [{}{}]", post.id, post.readStatus != 0 ? ' ' : '*',
                        session.Utf8(post.published), OneLine(session.Utf8(post.title)),
                        OneLine(session.Utf8(post.ownerTitle)), post.isSaved ? ", saved" : ""));
}

}  // namespace

int RunPosts(Session& session, const PostsOptions& options) {
  PostRows posts;
  if (!Load(session, options, posts)) return kFailure;
  for (PostRow& post : posts) post.isSaved |= options.cabinet.has_value();
  Narrow(posts, options);
  if (session.WantsJson()) {
    Json array = Json::array();
    for (const PostRow& post : posts) array.push_back(PostJson(session, post));
    PrintJson(array);
  } else {
    for (const PostRow& post : posts) PrintPost(session, post);
  }
  return kSuccess;
}

}  // namespace feedloom
