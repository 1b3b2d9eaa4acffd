#include "ui/browser/CRSS_RightBottomContainer.h"

#include <QFile>
#include <QVBoxLayout>

#include "skin/Keys.h"
#include "ui/Frame.h"
#include "ui/browser/CRSS_HtmlView.h"
#include "ui/browser/PageScheme.h"
#include "ui/page/Pages.h"
#include "vxctrl/QtText.h"

namespace feedloom {
namespace {

QString SkinDir(const Skin& skin) {
  return QFile::decodeName(QByteArray::fromStdString(skin.Config().GetImageDir()));
}

QByteArray Utf8(CodePage codePage, const std::string& text) {
  return QByteArray::fromStdString(codePage.ToUtf8(text));
}

}  // namespace

void PrepareBrowser() { RegisterPageScheme(); }

CRSS_RightBottomContainer::CRSS_RightBottomContainer(Frame& frame, QWidget* parent)
    : QWidget(parent),
      frame_(frame),
      view_(new CRSS_HtmlView([&frame] { return SkinDir(frame.TheSkin()); }, this)) {
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(view_);
  connect(view_, &CRSS_HtmlView::PageShown, this, &CRSS_RightBottomContainer::PageShown);
}

CRSS_RightBottomContainer::~CRSS_RightBottomContainer() = default;

void CRSS_RightBottomContainer::ShowMainPage() {
  const std::string path = frame_.TheSkin().GetImagePath(kSectionHtml, kImageMainPage);
  view_->Navigate(SkinFileUrl(QFile::decodeName(QByteArray::fromStdString(path))));
}

void CRSS_RightBottomContainer::ShowPost(const PostRow& post) {
  const QUrl link(ToQString(frame_.TheStore().TextCodePage(), post.link));
  if (mode_ == 1 || !IsWebAddress(link)) {  // a feed must not lead to the machine's own files
    ShowPreview(post);
  } else if (post.isPodcast == 1) {
    ShowPlayer(post);
  } else {
    view_->Navigate(link);
  }
}

void CRSS_RightBottomContainer::ShowPreview(const PostRow& post) {
  const CodePage codePage = frame_.TheStore().TextCodePage();
  const auto build = post.isPodcast == 1 ? BuildPodcastPreviewPage : BuildPostPreviewPage;
  const std::string html = build(1, {post.title}, {post.link}, {post.description}, {post.published},
                                 {}, false, LoadPageSkin(frame_.TheSkin()), PageCharset(codePage));
  view_->WritePage(Utf8(codePage, html), PageKind::Preview);
}

void CRSS_RightBottomContainer::ShowPlayer(const PostRow& post) {
  const std::string html = BuildPodcastPlayerPage(post.title, post.link, post.description,
                                                  post.published, LoadPageSkin(frame_.TheSkin()));
  view_->WritePage(Utf8(frame_.TheStore().TextCodePage(), html), PageKind::Player);
}

}  // namespace feedloom
