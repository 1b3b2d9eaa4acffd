// feedloomctl posts: lists the posts of a channel, a folder or a cabinet, also only those of today
// or those with a word in their title.
#include <fmt/core.h>

#include "ctl/Commands.h"
#include "ctl/Output.h"
#include "ctl/Selection.h"
#include "ctl/Session.h"
#include "store/Posts.h"
#include "store/Search.h"

namespace feedloom {
namespace {

using PostRows = std::vector<PostRow>;

// Sets `out` to the posts of the container `id`, which `load` reads. Returns false after a failure.
template <typename Container>
bool TakePosts(Store& store, bool (*load)(Store&, int, Container&), int id, PostRows& out) {
  Container container;
  const bool loaded = load(store, id, container);
  out = std::move(container.posts);
  return loaded;
}

bool LoadChannel(Session& session, int id, const std::optional<std::string>& word, PostRows& out) {
  Store& store = session.GetStore();
  if (!FindChannel(store, id)) return false;
  if (word) return SearchChannelPosts(store, id, *word, out);
  return TakePosts(store, LoadChannelWithPosts, id, out);
}

bool LoadFolder(Session& session, int id, bool today, const std::optional<std::string>& word,
                PostRows& out) {
  Store& store = session.GetStore();
  if (!FindFolder(store, id)) return false;
  if (today) return LoadFolderTodayUnread(store, id, out);
  if (word) return SearchFolderPosts(store, id, *word, out);
  return TakePosts(store, LoadFolderWithPosts, id, out);
}

bool LoadCabinet(Session& session, int id, const std::optional<std::string>& word, PostRows& out) {
  Store& store = session.GetStore();
  if (!FindCabinet(store, id)) return false;
  if (word) return SearchCabinetPosts(store, id, *word, out);
  return TakePosts(store, LoadCabinetWithPosts, id, out);
}

bool Load(Session& session, const PostsOptions& options, PostRows& out) {
  std::optional<std::string> word;
  if (options.word) word = session.Text(*options.word);
  if (options.channel) return LoadChannel(session, *options.channel, word, out);
  if (options.folder) return LoadFolder(session, *options.folder, options.today, word, out);
  if (options.cabinet) return LoadCabinet(session, *options.cabinet, word, out);
  if (options.today) return LoadTodayUnread(session.GetStore(), out);
  return SearchPosts(session.GetStore(), word.value_or(""), out);
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
