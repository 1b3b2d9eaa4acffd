// feedloomctl show: a post's page.
#include <fmt/core.h>

#include "ctl/Commands.h"
#include "ctl/Output.h"
#include "ctl/Selection.h"
#include "ctl/Session.h"
#include "profile/Files.h"
#include "store/PostDetails.h"
#include "ui/page/PageSkin.h"
#include "ui/page/Pages.h"

namespace feedloom {
namespace {

std::string PageOf(Session& session, const PostRow& post) {
  const PostDetails details = FindPostDetails(session.GetStore(), post.id, post.link);
  const auto build = post.isPodcast != 0 ? BuildPodcastPreviewPage : BuildPostPreviewPage;
  return build(1, {post.title}, {post.link}, {post.description}, {post.published}, {""}, false,
               LoadPageSkin(session.GetSkin()), PageCharset(session.TextCodePage()),
               {PageCredits{details.authors, details.categories}});
}

}  // namespace

int RunShow(Session& session, const ShowOptions& options) {
  const auto post = FindNamedPost(session.GetStore(), options.post);
  if (!post) return kFailure;
  const std::string page = PageOf(session, *post);
  if (!options.output.empty()) {
    if (const Failure failure = SaveFile(options.output, page)) {
      PrintError(*failure);
      return kFailure;
    }
  } else if (session.WantsJson()) {
    PrintJson({{"id", post->id}, {"page", session.Utf8(page)}});
  } else {
    PrintLine(session.Utf8(page));
  }
  return kSuccess;
}

}  // namespace feedloom
