#include "ui/browser/CRSS_HtmlView.h"

#include <QOpenGLContext>
#include <QPrinter>
#include <QQuickWindow>
#include <QVBoxLayout>
#include <QWebEngineContextMenuRequest>
#include <QWebEngineFindTextResult>
#include <QWebEngineHistory>
#include <QWebEngineProfile>
#include <QWebEngineScript>
#include <algorithm>
#include <array>
#include <utility>

#include "ui/browser/LinkStrip.h"
#include "ui/browser/PageMarks.h"
#include "ui/browser/PageScheme.h"
#include "ui/browser/PageScripts.h"
#include "ui/browser/PageView.h"
#include "ui/browser/PostAddresses.h"
#include "ui/browser/WebPage.h"

namespace feedloom {
namespace {

// The sizes of a page in ascending order, and the index of the normal one.
constexpr std::array kZoomFactors = {0.25, 0.33, 0.5,  0.67, 0.75, 0.9, 1.0, 1.1,
                                     1.25, 1.5,  1.75, 2.0,  2.5,  3.0, 4.0, 5.0};
constexpr int kNormalSize = 6;
constexpr int kLargestSize = static_cast<int>(kZoomFactors.size()) - 1;

// Selects software rendering when the host has no OpenGL: without OpenGL the engine would show
// nothing and end the process. The choice holds for the whole process.
QWidget* Prepared(QWidget* parent) {
  const QString software = QStringLiteral("software");
  const QOpenGLContext* const openGl = QOpenGLContext::globalShareContext();
  const bool hasOpenGl = openGl != nullptr && openGl->isValid();
  if (!hasOpenGl && QQuickWindow::sceneGraphBackend() != software) {
    QQuickWindow::setSceneGraphBackend(software);
  }
  return parent;
}

}  // namespace

// The engine's objects. They must be destroyed in this order: the view, its page, the profile. The
// profile keeps cookies and the cache in memory only.
class CRSS_HtmlView::Engine {
 public:
  explicit Engine(Callbacks callbacks)
      : crashPage(std::move(callbacks.crashPage)),
        style(std::move(callbacks.style)),
        frameText(std::move(callbacks.frameText)),
        scheme(std::move(callbacks.skinDir), nullptr),
        askSavePath(std::move(callbacks.askSavePath)),
        downloads(
            profile, [this](const QString& name, const QUrl& from) { return AskPlace(name, from); },
            nullptr),
        page(&profile, scheme.Pages(), std::move(callbacks.askLogin), nullptr) {
    page.SetOpensOutside(std::move(callbacks.opensOutside));
    profile.installUrlSchemeHandler(kPageScheme, &scheme);
    view.setPage(&page);
    view.setWindowTitle(QStringLiteral("Web Browser"));
    view.setAccessibleName(view.windowTitle());
    // The engine's own menu offers what the pane cannot do.
    view.setContextMenuPolicy(Qt::CustomContextMenu);
  }

  // What a page has made itself comes from the page's host. The engine may be destroyed while the
  // dialog is open.
  QString AskPlace(const QString& name, const QUrl& from) {
    if (!page.MayDownload(from)) return {};
    const auto ask = askSavePath;
    const QString source = HostOf(from);
    return ask(name, source.isEmpty() ? HostOf(page.url()) : source);
  }

  const std::function<QByteArray(const QUrl& crashed)> crashPage;
  const std::function<PageStyle()> style;
  const std::function<QString(const FrameLink& link)> frameText;
  std::unique_ptr<QPrinter> printer;  // null when no print is in progress
  PageSchemeHandler scheme;
  QWebEngineProfile profile;
  const std::function<QString(const QString& name, const QString& host)> askSavePath;
  Downloads downloads;
  WebPage page;
  PageView view;
  LinkStrip* strip = nullptr;  // a child of the view
  int host = 0;                // the host number of generated pages
};

CRSS_HtmlView::CRSS_HtmlView(Callbacks callbacks, QWidget* parent)
    : QWidget(Prepared(parent)), engine_(std::make_unique<Engine>(std::move(callbacks))) {
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(&engine_->view);
  setFocusProxy(&engine_->view);
  engine_->strip = new LinkStrip(this);
  Connect();
}

// The view is a member and a child widget: as a child it would be deleted twice.
CRSS_HtmlView::~CRSS_HtmlView() { engine_->view.setParent(nullptr); }

void CRSS_HtmlView::Connect() {
  WebPage* const page = &engine_->page;
  connect(page, &WebPage::Painted, this, &CRSS_HtmlView::ScrollShown);
  connect(page, &WebPage::Painted, this, &CRSS_HtmlView::PageShown);
  connect(page, &WebPage::Changed, this, &CRSS_HtmlView::ApplyZoom);
  connect(page, &WebPage::Changed, this, &CRSS_HtmlView::Changed);
  connect(page, &WebPage::Ready, this, [this] {
    const auto shown = engine_->page.Generated();
    if (shown) MarkWords(engine_->page, shown->marked, !placeWhenShown_.isNull());
  });
  connect(page, &WebPage::FramesFound, this, &CRSS_HtmlView::ReplaceFrames);
  connect(page, &QWebEnginePage::linkHovered, this, [this](const QString& link) {
    const QUrl meant = engine_->page.Meant(QUrl(link));
    engine_->strip->Show(IsGenerated(meant) ? QUrl() : meant);
  });
  connect(page, &QWebEnginePage::loadStarted, this, [this] { engine_->strip->hide(); });
  connect(page, &WebPage::Completed, this, &CRSS_HtmlView::Completed);
  connect(page, &WebPage::FeedsFound, this, &CRSS_HtmlView::FeedsFound);
  connect(page, &WebPage::Reported, this, &CRSS_HtmlView::Reported);
  // Queued, because their slots open dialogs: the engine must finish handling the click first.
  connect(page, &WebPage::ActionClicked, this, &CRSS_HtmlView::ActionClicked, Qt::QueuedConnection);
  connect(page, &WebPage::OutsideWanted, this, &CRSS_HtmlView::OutsideWanted, Qt::QueuedConnection);
  connect(page, &QWebEnginePage::renderProcessTerminated, this, &CRSS_HtmlView::ShowCrash,
          Qt::QueuedConnection);
  connect(page, &QWebEnginePage::findTextFinished, this, [this](const QWebEngineFindTextResult& r) {
    emit FoundInPage(r.activeMatch(), r.numberOfMatches());
  });
  connect(&engine_->downloads, &Downloads::Changed, this, &CRSS_HtmlView::DownloadChanged);
  connect(&engine_->downloads, &Downloads::Begun, this, &CRSS_HtmlView::Changed);
  connect(&engine_->downloads, &Downloads::Changed, this, &CRSS_HtmlView::Changed);
  connect(&engine_->view, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
    const QWebEngineContextMenuRequest* const request = engine_->view.lastContextMenuRequest();
    emit MenuRequested({engine_->view.mapToGlobal(at), engine_->page.Meant(request->linkUrl()),
                        request->selectedText()});
  });
  connect(&engine_->view, &PageView::Touched, page, &WebPage::Touch);
  connect(&engine_->view, &QWebEngineView::printFinished, this, [this](bool hasWorked) {
    engine_->printer.reset();
    if (!hasWorked) emit Reported(BrowserReport::PrintFailed, {});
  });
}

void CRSS_HtmlView::Navigate(const QUrl& url) {
  placeWhenShown_ = {};
  // A renderer process that is busy with a large page would delay other pages of its host.
  if (IsRenderingLargePage()) ++engine_->host;
  engine_->page.load(IsGenerated(url) ? AtHost(url, engine_->host) : url);
}

void CRSS_HtmlView::WritePageToBrowser(const PageToWrite& page) {
  if (page.html.isEmpty()) return;
  PageStyle style = engine_->style();
  style.source = page.channel;
  const GeneratedPage generated = {WithHead(page.html, page.kind, page.showsRemoteImages, style),
                                   page.kind, page.source, page.title, page.marked};
  // A large page gets a renderer process of its own, so that going back does not wait for it.
  if (IsLarge(generated)) ++engine_->host;
  Navigate(PageUrlFor(engine_->scheme.Pages().Add(generated), page.source));
}

bool CRSS_HtmlView::IsRenderingLargePage() const {
  const PageLoad& load = engine_->page.Load();
  const auto number = PageNumber(load.target);
  const auto page = number ? engine_->scheme.Pages().Find(*number) : std::nullopt;
  return page && IsLarge(*page) && load.phase != LoadPhase::Drawn;
}

// Does nothing when the crash page itself has crashed, or when the page is being left anyway.
void CRSS_HtmlView::ShowCrash() {
  const auto page = engine_->page.Generated();
  if (engine_->page.Load().phase == LoadPhase::Requested || (page && page->kind == PageKind::Crash))
    return;
  const QUrl crashed = engine_->page.url();
  WritePageToBrowser({engine_->crashPage(crashed), PageKind::Crash, crashed});
}

void CRSS_HtmlView::GoBack() {
  if (CanGoBack()) engine_->page.Order(QWebEnginePage::Back);
}

void CRSS_HtmlView::GoForward() {
  if (CanGoForward()) engine_->page.Order(QWebEnginePage::Forward);
}

void CRSS_HtmlView::Reload() { engine_->page.Order(QWebEnginePage::Reload); }

void CRSS_HtmlView::Act(const PageAction& action) { engine_->page.Act(action); }

void CRSS_HtmlView::Stop() {
  IsLoading() ? engine_->page.triggerAction(QWebEnginePage::Stop) : StopDownloads();
}

void CRSS_HtmlView::StopDownloads() { engine_->downloads.Stop(); }

bool CRSS_HtmlView::CanGoBack() const { return engine_->page.history()->canGoBack(); }

bool CRSS_HtmlView::CanGoForward() const { return engine_->page.history()->canGoForward(); }

bool CRSS_HtmlView::IsLoading() const { return IsUnderWay(engine_->page.Load()); }

bool CRSS_HtmlView::IsDownloading() const { return engine_->downloads.AreUnderWay(); }

bool CRSS_HtmlView::IsWritten() const { return engine_->page.Generated().has_value(); }

std::optional<PlayedMedia> CRSS_HtmlView::Played() const {
  const auto page = engine_->page.Generated();
  if (!page || page->kind != PageKind::Player) return {};
  return PlayedMedia{page->title, page->source};
}

// A post's page shows no frame: a link to it appears instead.
void CRSS_HtmlView::ReplaceFrames(const QStringList& frames) {
  const auto page = engine_->page.Generated();
  if (!page || page->kind == PageKind::Player) return;
  QList<FrameLine> lines;
  for (const QString& frame : frames) {
    const auto link = LinkForFrame(engine_->page.Meant(QUrl(frame)));
    if (link && engine_->frameText) lines.append({frame, link->page, engine_->frameText(*link)});
  }
  if (lines.isEmpty()) return;
  engine_->page.runJavaScript(ReplaceFramesScript(lines), QWebEngineScript::ApplicationWorld);
}

QUrl CRSS_HtmlView::Address() const {
  const QUrl url = engine_->page.url();
  return IsGenerated(url) ? QUrl() : url;
}

QUrl CRSS_HtmlView::OutsideAddress() const {
  const auto page = engine_->page.Generated();
  if (!page) return Address();
  return IsGenerated(page->source) ? QUrl() : page->source;
}

void CRSS_HtmlView::Zoom(int steps) {
  zoomSteps_ =
      steps == 0 ? 0 : std::clamp(zoomSteps_ + steps, -kNormalSize, kLargestSize - kNormalSize);
  ApplyZoom();
}

// The engine resets the zoom factor when the site changes.
void CRSS_HtmlView::ApplyZoom() {
  const double factor = kZoomFactors[static_cast<std::size_t>(kNormalSize + zoomSteps_)];
  if (engine_->page.zoomFactor() != factor) engine_->page.setZoomFactor(factor);
}

// The engine counts in enlarged pixels.
QPointF CRSS_HtmlView::Scrolled() const {
  return engine_->page.scrollPosition() / engine_->page.zoomFactor();
}

void CRSS_HtmlView::ScrollWhenShown(const QPointF& place) { placeWhenShown_ = place; }

void CRSS_HtmlView::ScrollShown() {
  const QPointF place = std::exchange(placeWhenShown_, {});
  if (!place.isNull())
    engine_->page.runJavaScript(ScrollScript(place), QWebEngineScript::ApplicationWorld);
}

void CRSS_HtmlView::ScrollScreen(bool isOn, std::function<void(bool)> onScrolled) {
  engine_->page.Ask(ScrollScreenScript(isOn),
                    [this, load = engine_->page.Load().number,
                     onScrolled = std::move(onScrolled)](const QVariant& hasMoved) {
                      if (load == engine_->page.Load().number) onScrolled(hasMoved.toBool());
                    });
}

void CRSS_HtmlView::Find(const QString& text, bool backward) {
  engine_->page.findText(text,
                         backward ? QWebEnginePage::FindBackward : QWebEnginePage::FindFlags());
}

void CRSS_HtmlView::Print(std::unique_ptr<QPrinter> printer) {
  if (engine_->printer) return;
  engine_->printer = std::move(printer);
  engine_->view.print(engine_->printer.get());
}

}  // namespace feedloom
