// feedloomctl posts: lists the posts of a channel, a folder or a cabinet, or some of them.
#include <fmt/core.h>

#include <algorithm>

#include "ctl/Commands.h"
#include "ctl/Output.h"
#include "ctl/Selection.h"
#include "ctl/Session.h"
#include "ctl/Since.h"
#include "store/PostLists.h"
#include "store/Search.h"
#include "threads/Clock.h"

namespace feedloom {
namespace {

using PostRows = std::vector<PostRow>;

bool LoadRow(Store& store, const RowKey& row, const std::optional<std::string>& word,
             PostRows& out) {
  return word ? SearchPosts(store, row, *word, out) : LoadPosts(store, row, out);
}

bool LoadFolder(Store& store, int id, bool today, const std::optional<std::string>& word,
                PostRows& out) {
  if (!FindFolder(store, id)) return false;
  return today ? LoadFolderTodayUnread(store, id, out)
               : LoadRow(store, {RowKind::Folder, id}, word, out);
}

bool Load(Session& session, const PostsOptions& options, PostRows& out) {
  Store& store = session.GetStore();
  std::optional<std::string> word;
  if (options.word) word = session.Text(*options.word);
  if (const auto id = options.channel) {
    return FindChannel(store, *id) && LoadRow(store, {RowKind::Channel, *id}, word, out);
  }
  if (options.folder) return LoadFolder(store, *options.folder, options.today, word, out);
  if (const auto id = options.cabinet) {
    return FindCabinet(store, *id) && LoadRow(store, {RowKind::Cabinet, *id}, word, out);
  }
  return options.today ? LoadTodayUnread(store, out) : SearchPosts(store, word.value_or(""), out);
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
          {"title", session.Utf8(post.title)},
          {"link", session.Utf8(post.link)},
          {"date", session.Utf8(post.published)},
          {"channel", session.Utf8(post.ownerTitle)},
          {"read", post.readStatus != 0},
          {"podcast", post.isPodcast != 0},
          {"description", session.Utf8(post.description)}};
}

void PrintPost(const Session& session, const PostRow& post) {
  PrintLine(fmt::format("{:>6} {} {:19} {} [{}]", post.id, post.readStatus != 0 ? ' ' : '*',
                        session.Utf8(post.published), OneLine(session.Utf8(post.title)),
                        OneLine(session.Utf8(post.ownerTitle))));
}

}  // namespace

int RunPosts(Session& session, const PostsOptions& options) {
  PostRows posts;
  if (!Load(session, options, posts)) return kFailure;
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
