// feedloomctl posts: lists the posts of a channel, a folder or a cabinet, also only those of today
// or those with a word in their title.
#include <fmt/core.h>

#include "ctl/Commands.h"
#include "ctl/Output.h"
#include "ctl/Selection.h"
#include "ctl/Session.h"
#include "store/PostLists.h"
#include "store/Search.h"

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
