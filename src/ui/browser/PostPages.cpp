#include "ui/browser/PostPages.h"

#include "skin/Keys.h"
#include "ui/Frame.h"
#include "ui/page/Pages.h"
#include "vxctrl/QtText.h"

namespace feedloom {
namespace {

PageToWrite ToWrite(Frame& frame, const PostRow& post, const std::string& html, PageKind kind) {
  const CodePage codePage = frame.GetStore().TextCodePage();
  return {.html = QByteArray::fromStdString(codePage.ToUtf8(html)),
          .kind = kind,
          .source = QUrl(ToQString(codePage, post.link)),
          .showsRemoteImages = frame.ShowsRemoteImages(),
          .title = ToLine(codePage, post.title)};
}

}  // namespace

PageToWrite MakePreview(Frame& frame, const PostRow& post) {
  const bool isPodcast = post.isPodcast == 1;
  const bool isFromWeb = frame.State().listMode == ListMode::WebDirectory;
  const std::string feedUrl = isFromWeb ? post.feedUrl : std::string();
  const auto build = isPodcast ? BuildPodcastPreviewPage : BuildPostPreviewPage;
  const std::string html =
      build(1, {post.title}, {post.link}, {post.description}, {post.published}, {feedUrl},
            isFromWeb, LoadPageSkin(frame.GetSkin()), PageCharset(frame.GetStore().TextCodePage()));
  return ToWrite(frame, post, html, isPodcast ? PageKind::Podcast : PageKind::Post);
}

PageToWrite MakePlayer(Frame& frame, const PostRow& post) {
  const std::string html = BuildPodcastPlayerPage(post.title, post.link, post.description,
                                                  post.published, LoadPageSkin(frame.GetSkin()));
  return ToWrite(frame, post, html, PageKind::Player);
}

QByteArray MakeCrashPage(Frame& frame, const QUrl& crashed) {
  const CodePage codePage = frame.GetStore().TextCodePage();
  const auto text = [&](const char* key) {
    return codePage.ToUtf8(frame.GetSkin().GetText(kSectionTexts, key));
  };
  return QByteArray::fromStdString(BuildCrashPage(text(kTextPageCrashed), text(kTextLoadAgain),
                                                  crashed.toEncoded().toStdString()));
}

}  // namespace feedloom
