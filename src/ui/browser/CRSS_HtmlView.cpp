#include "ui/browser/CRSS_HtmlView.h"

#include <QVBoxLayout>
#include <QWebEngineProfile>
#include <QWebEngineView>

#include "ui/browser/PageScheme.h"
#include "ui/browser/WebPage.h"

namespace feedloom {

// The members end in the order that the engine wants: the view, its page, the profile. The profile
// keeps cookies and its cache in memory only.
class CRSS_HtmlView::Engine {
 public:
  explicit Engine(SkinDirectory skinDir)
      : pages(std::move(skinDir), nullptr), page(&profile, nullptr) {
    profile.installUrlSchemeHandler(kPageScheme, &pages);
    view.setPage(&page);
    view.setWindowTitle(QStringLiteral("Web Browser"));
    view.setContextMenuPolicy(Qt::NoContextMenu);  // the engine's offers what the pane cannot do
  }

  PageSchemeHandler pages;
  QWebEngineProfile profile;
  WebPage page;
  QWebEngineView view;
};

CRSS_HtmlView::CRSS_HtmlView(SkinDirectory skinDir, QWidget* parent)
    : QWidget(parent), engine_(std::make_unique<Engine>(std::move(skinDir))) {
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(&engine_->view);
  setFocusProxy(&engine_->view);
  connect(&engine_->page, &WebPage::Painted, this, &CRSS_HtmlView::PageShown);
}

// The view is a member and a child: it leaves the widget before it ends.
CRSS_HtmlView::~CRSS_HtmlView() { engine_->view.setParent(nullptr); }

void CRSS_HtmlView::Navigate(const QUrl& url) { engine_->page.Open(url); }

void CRSS_HtmlView::WritePage(const QByteArray& html, PageKind kind) {
  if (html.isEmpty()) return;
  const int number = engine_->pages.Pages().Add(WithContentPolicy(html, kind));
  engine_->page.Open(GeneratedPageUrl(number));
}

}  // namespace feedloom
