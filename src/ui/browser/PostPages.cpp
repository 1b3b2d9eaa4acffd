#include "ui/browser/PostPages.h"

#include "look/QtText.h"
#include "skin/Keys.h"
#include "store/PostDetails.h"
#include "ui/Desk.h"
#include "ui/page/Pages.h"

namespace feedloom {
namespace {

PageToWrite ToWrite(Desk& desk, const PostRow& post, const std::string& html, PageKind kind) {
  const CodePage codePage = desk.GetStore().TextCodePage();
  return {.html = QByteArray::fromStdString(codePage.ToUtf8(html)),
          .kind = kind,
          .source = QUrl(ToQString(codePage, post.link)),
          .title = ToLine(codePage, post.title),
          .channel = ToLine(codePage, post.ownerTitle),
          .marked = ParseTextQuery(desk.State().marked)};
}

}  // namespace

PageToWrite MakePreview(Desk& desk, const PostRow& post) {
  const bool isPodcast = post.isPodcast == 1;
  const bool isFromWeb = desk.State().listMode == ListMode::WebDirectory;
  const std::string feedUrl = isFromWeb ? post.feedUrl : std::string();
  const auto build = isPodcast ? BuildPodcastPreviewPage : BuildPostPreviewPage;
  const PostDetails details =
      isFromWeb ? PostDetails() : FindPostDetails(desk.GetStore(), post.id, post.link);
  const std::string html =
      build(1, {post.title}, {post.link}, {post.description}, {post.published}, {feedUrl},
            isFromWeb, LoadPageSkin(desk.GetSkin()), PageCharset(desk.GetStore().TextCodePage()),
            {PageCredits{details.authors, details.categories}});
  return ToWrite(desk, post, html, isPodcast ? PageKind::Podcast : PageKind::Post);
}

PageToWrite MakePlayer(Desk& desk, const PostRow& post) {
  const std::string html = BuildPodcastPlayerPage(post.title, post.link, post.description,
                                                  post.published, LoadPageSkin(desk.GetSkin()));
  return ToWrite(desk, post, html, PageKind::Player);
}

QByteArray MakeCrashPage(Desk& desk, const QUrl& crashed) {
  const CodePage codePage = desk.GetStore().TextCodePage();
  const auto text = [&](const char* key) {
    return codePage.ToUtf8(desk.GetSkin().GetText(kSectionTexts, key));
  };
  return QByteArray::fromStdString(BuildCrashPage(text(kTextPageCrashed), text(kTextLoadAgain),
                                                  crashed.toEncoded().toStdString()));
}

}  // namespace feedloom
