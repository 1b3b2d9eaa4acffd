#include "ui/browser/CRSS_RightBottomContainer.h"

#include <QApplication>
#include <QFile>
#include <QPainter>
#include <QPointer>
#include <QVBoxLayout>
#include <map>

#include "look/QtText.h"
#include "look/SkinDrawing.h"
#include "look/SkinFont.h"
#include "look/SkinText.h"
#include "skin/Keys.h"
#include "ui/Desk.h"
#include "ui/Subscribing.h"
#include "ui/browser/BrowserServices.h"
#include "ui/browser/CRSS_HtmlView.h"
#include "ui/browser/CRSS_RightBottomToolBarWnd.h"
#include "ui/browser/DisplayedAddress.h"
#include "ui/browser/FeedMenu.h"
#include "ui/browser/FindBar.h"
#include "ui/browser/MediaBar.h"
#include "ui/browser/PageButtons.h"
#include "ui/browser/PageCommands.h"
#include "ui/browser/PageScheme.h"
#include "ui/browser/PostPages.h"
#include "ui/browser/StatusTexts.h"

namespace feedloom {
namespace {

constexpr int kRingWidth = 2;

bool HasKeyboard(const QWidget& view) {
  const QWidget* const focus = QApplication::focusWidget();
  return focus != nullptr && view.isAncestorOf(focus);
}

QString FilePath(const std::string& path) {
  return QFile::decodeName(QByteArray::fromStdString(path));
}

PageStyle Style(const Skin& skin) {
  if (skin.GetSkinValue(kSectionHtml, kFilePageStyle).empty()) return {};
  const QFont font = LoadSkinFont(skin, kSectionFont, kFontDefault);
  return {.sheet = FilePath(skin.GetImagePath(kSectionHtml, kFilePageStyle)),
          .font = QFontInfo(font).family()};
}

bool HasEnded(BrowserReport report) {
  return report == BrowserReport::Loaded || report == BrowserReport::Stopped;
}

// Whether the report tells how far a page has come, and not of a fault.
bool TellsProgress(BrowserReport report) {
  return HasEnded(report) || report == BrowserReport::Loading || report == BrowserReport::Hovered;
}

QString FrameText(const Desk& desk, const FrameLink& link) {
  static const std::map<FrameKind, const char*> kKeys = {{FrameKind::Video, kTextFrameVideo},
                                                         {FrameKind::Sound, kTextFrameSound},
                                                         {FrameKind::Map, kTextFrameMap},
                                                         {FrameKind::Page, kTextFramePage}};
  return SkinText(desk.GetSkin(), kKeys.at(link.kind))
      .replace("%s", DisplayAddress(link.page).text);
}

CRSS_HtmlView::Callbacks MakeCallbacks(Desk& desk, const BrowserServices& services) {
  return {.skinDir = [&desk] { return FilePath(desk.GetSkin().Config().GetImageDir()); },
          .crashPage = [&desk](const QUrl& crashed) { return MakeCrashPage(desk, crashed); },
          .style = [&desk] { return Style(desk.GetSkin()); },
          // Copies, because the services may be deleted while a dialog is open.
          .askSavePath =
              [&services](const QString& name, const QString& host) {
                const auto ask = services.askSavePath;
                return ask(name, host);
              },
          .askLogin =
              [&services](const LoginQuestion& question) {
                const auto ask = services.askLogin;
                return ask(question);
              },
          .opensOutside = [&desk] { return desk.GetSkin().Config().OpensLinksOutside(); },
          .frameText = [&desk](const FrameLink& link) { return FrameText(desk, link); }};
}

}  // namespace

void PrepareBrowser() {
  // On this system the engine shows a screen reader its pages only when it is asked to.
  qputenv("QTWEBENGINE_ENABLE_LINUX_ACCESSIBILITY", "1");
  RegisterPageScheme();
}

CRSS_RightBottomContainer::CRSS_RightBottomContainer(Desk& desk, Subscribing& subscribing,
                                                     Reading& reading,
                                                     const BrowserServices& services,
                                                     QWidget* parent)
    : QWidget(parent),
      desk_(desk),
      subscribing_(subscribing),
      reading_(reading),
      services_(services),
      border_(LoadBrowserPaneFrame(desk.GetSkin())),
      toolbar_(new CRSS_RightBottomToolBarWnd(desk.GetSkin(), this)),
      page_(new QWidget(this)),
      view_(new CRSS_HtmlView(MakeCallbacks(desk, services_), page_)),
      findBar_(new FindBar(desk.GetSkin(), page_)),
      mediaBar_(new MediaBar(desk.GetSkin(), page_)),
      commands_(std::make_unique<PageCommands>(desk, services_, *view_, *findBar_)) {
  auto* const layout = new QVBoxLayout(page_);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(view_, 1);
  layout->addWidget(mediaBar_);
  layout->addWidget(findBar_);
  setFocusProxy(view_);
  view_->setFont(LoadSkinFont(desk.GetSkin(), kSectionFont, kFontDefault));
  connect(toolbar_, &CRSS_RightBottomToolBarWnd::Commanded, this, &CRSS_RightBottomContainer::Run);
  connect(toolbar_, &CRSS_RightBottomToolBarWnd::AddressLeft, this, [this] {
    view_->setFocus();
    toolbar_->SetAddress(shownAddress_);
  });
  connect(qApp, &QApplication::focusChanged, this, [this] { update(); });  // the ring
  ConnectView();
  ConnectBars();
  SetUpKeys();
  toolbar_->Enable(kBrowserFeed, false);
  UpdateToolBar();
}

CRSS_RightBottomContainer::~CRSS_RightBottomContainer() = default;

void CRSS_RightBottomContainer::ConnectView() {
  connect(view_, &CRSS_HtmlView::PageShown, this, &CRSS_RightBottomContainer::NotePageShown);
  connect(view_, &CRSS_HtmlView::Changed, this, &CRSS_RightBottomContainer::UpdateToolBar);
  connect(view_, &CRSS_HtmlView::Completed, this, &CRSS_RightBottomContainer::ForgetFeeds);
  connect(view_, &CRSS_HtmlView::FeedsFound, this, &CRSS_RightBottomContainer::KeepFeeds);
  connect(view_, &CRSS_HtmlView::Reported, this, [this](BrowserReport report, const QString& text) {
    const std::string status = StatusText(desk_.GetSkin(), report, text);
    TellsProgress(report) ? desk_.ReportPage(status, HasEnded(report))
                          : desk_.ReportMessage(status);
  });
  connect(view_, &CRSS_HtmlView::DownloadChanged, this,
          [this](DownloadEvent event, const QString& name, const QString& progress) {
            desk_.ReportMessage(StatusText(desk_.GetSkin(), event, name, progress));
          });
  connect(view_, &CRSS_HtmlView::OutsideWanted, this,
          [this](const QUrl& url) { commands_->OpenExternally(url); });
  connect(view_, &CRSS_HtmlView::MenuRequested, this, [this](const MenuTarget& target) {
    ShowMenu(commands_->ContextMenu(target), desk_.GetSkin(), target.place, this,
             [this, target](int command) { commands_->Run(command, target); });
  });
  connect(view_, &CRSS_HtmlView::ActionClicked, this,
          [this](const PageAction& action, const QStringList& texts) {
            if (isActing_) return;  // the second click of a double click would ask again
            const QPointer self(this);
            isActing_ = true;
            RunPageAction(desk_, subscribing_, reading_, services_, action, texts);
            if (self) isActing_ = false;
          });
}

void CRSS_RightBottomContainer::ConnectBars() {
  connect(findBar_, &FindBar::Wanted, view_, &CRSS_HtmlView::Find);
  connect(view_, &CRSS_HtmlView::FoundInPage, findBar_, &FindBar::SetResult);
  connect(mediaBar_, &MediaBar::PlayerWanted, this,
          [this](const QUrl& media) { commands_->OpenInPlayer(media); });
  connect(findBar_, &FindBar::Closed, this, [this] { view_->setFocus(); });
}

// What the pane shows.

void CRSS_RightBottomContainer::NotePageShown() {
  if (shownPost_ && !shownPost_->isKnown && !view_->IsWritten()) {
    shownPost_->address = view_->OutsideAddress();  // a server may have redirected the request
    shownPost_->isKnown = true;
  }
  emit PageShown();
}

// Whether the post's page is on display: the user may have left it.
bool CRSS_RightBottomContainer::IsOnDisplay(const ShownPost& shown) const {
  return !shown.isKnown ||
         (view_->IsWritten() == shown.isWritten && view_->OutsideAddress() == shown.address);
}

void CRSS_RightBottomContainer::Redraw() {
  if (!shownPost_ || shownPost_->mode == mode_ || !IsOnDisplay(*shownPost_)) return view_->update();
  ShowPost(PostRow(shownPost_->post));
}

void CRSS_RightBottomContainer::ShowMainPage() {
  shownPost_.reset();
  view_->Navigate(
      SkinFileUrl(FilePath(desk_.GetSkin().GetImagePath(kSectionHtml, kImageMainPage))));
}

void CRSS_RightBottomContainer::ShowEmptyPage() {
  shownPost_.reset();
  view_->WritePageToBrowser({.html = "<html><head></head><body></body></html>"});
}

void CRSS_RightBottomContainer::ShowPost(const PostRow& post) {
  shownPost_ = ShownPost{.post = post, .mode = mode_};
  const QString address = ToQString(desk_.GetStore().TextCodePage(), post.link);
  const QUrl link(address);
  // The link of a hostile post may name a local file, or a button of the previous page.
  const bool hasPage = IsWebAddress(link) && !ParsePageAction(address);
  const bool isPodcast = post.isPodcast == 1;
  if (mode_ == 1 || !hasPage || (OpensOutside() && !isPodcast)) {
    WritePage(MakePreview(desk_, post));
  } else if (isPodcast) {
    WritePage(MakePlayer(desk_, post));
  } else {
    toolbar_->SetAddress(link);
    view_->Navigate(link);
  }
}

void CRSS_RightBottomContainer::ShowWebPage(const QUrl& address) {
  OpensOutside() ? commands_->OpenExternally(address) : view_->Navigate(address);
}

// The pane then shows the module's own pages only.
bool CRSS_RightBottomContainer::OpensOutside() const {
  return desk_.GetSkin().Config().OpensLinksOutside();
}

void CRSS_RightBottomContainer::WritePage(PageToWrite page) {
  if (page.html.isEmpty()) return;
  page.showsRemoteImages = services_.showsRemoteImages();
  shownPost_->isWritten = shownPost_->isKnown = true;
  shownPost_->address = page.source;
  view_->WritePageToBrowser(page);
  toolbar_->Enable(kBrowserFeed, false);  // such a page announces no feeds
}

// The toolbar.

void CRSS_RightBottomContainer::Run(BrowserCommand command) {
  switch (command) {
    case kBrowserBack:
      return view_->GoBack();
    case kBrowserNext:
      return view_->GoForward();
    case kBrowserStop:
      return view_->Stop();
    case kBrowserRefresh:
      return view_->Reload();
    case kBrowserGo:
    case kBrowserGoByKey:
      return Go();
    case kBrowserFeed:
      return OfferFeeds();
  }
}

void CRSS_RightBottomContainer::Go() {
  const QString typed = toolbar_->Address();
  if (typed.isEmpty()) return;
  const QUrl url = CompleteAddress(typed);
  if (const auto action = ParsePageAction(typed)) {
    view_->Act(*action);
  } else if (IsForBrowser(url) && !OpensOutside()) {
    view_->Navigate(url);
    view_->setFocus();
  } else if (IsForBrowser(url) || url.scheme() == QLatin1String("mailto")) {
    commands_->OpenExternally(url);
  } else {
    desk_.ReportMessage(StatusText(desk_.GetSkin(), BrowserReport::LinkRefused, typed));
  }
}

void CRSS_RightBottomContainer::UpdateToolBar() {
  toolbar_->Enable(kBrowserBack, view_->CanGoBack());
  toolbar_->Enable(kBrowserNext, view_->CanGoForward());
  toolbar_->Enable(kBrowserStop, view_->IsLoading() || view_->IsDownloading());
  if (view_->IsWritten()) toolbar_->Enable(kBrowserFeed, false);
  mediaBar_->Show(view_->Played());
  // While a page is loading the box keeps the requested address.
  const QUrl address = view_->Address();
  if (view_->IsLoading() && address == shownAddress_) return;
  shownAddress_ = address;
  if (!toolbar_->IsAddressEdited()) toolbar_->SetAddress(address);
}

// The feeds that the page announces.

void CRSS_RightBottomContainer::ForgetFeeds() {
  desk_.State().discoveredFeeds.clear();
  desk_.State().discoveredOtherFeeds.clear();
  toolbar_->Enable(kBrowserFeed, false);
}

void CRSS_RightBottomContainer::KeepFeeds(const AnnouncedFeeds& feeds) {
  const CodePage codePage = desk_.GetStore().TextCodePage();
  SharedState& state = desk_.State();
  const bool takesJson = desk_.GetSkin().Config().ReadsLeniently();
  for (const FeedLink& link : feeds.links) {
    if (link.kind == FeedLink::Kind::Json && !takesJson) continue;
    const bool isRss = link.kind == FeedLink::Kind::Rss;
    const QString address =
        isRss ? ResolveFeedLink(link.href, feeds.domain, feeds.documentUrl) : link.resolved;
    auto& group = isRss ? state.discoveredFeeds : state.discoveredOtherFeeds;
    group.push_back({FromQString(codePage, link.title), FromQString(codePage, address),
                     FromQString(codePage, link.resolved)});
  }
  toolbar_->Enable(kBrowserFeed,
                   !state.discoveredFeeds.empty() || !state.discoveredOtherFeeds.empty());
}

void CRSS_RightBottomContainer::OfferFeeds() {
  ShowFeedMenu(
      {desk_.State().discoveredFeeds, desk_.State().discoveredOtherFeeds},
      desk_.GetStore().TextCodePage(), toolbar_->FeedButtonPlace(), this,
      [this](const std::string& address) { subscribing_.AddChannel(address); },
      [this] { toolbar_->FocusFeedButton(); });
}

void CRSS_RightBottomContainer::resizeEvent(QResizeEvent* /*event*/) {
  toolbar_->setGeometry(0, 0, width(), toolbar_->Height());
  page_->setGeometry(ViewArea(rect(), toolbar_->Height()));
}

void CRSS_RightBottomContainer::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  DrawPaneFrame(painter, rect(), toolbar_->Height(), border_);
  if (!HasKeyboard(*view_)) return;
  DrawSkinFocus(painter, palette(), ViewArea(rect(), toolbar_->Height()), -kRingWidth);
}

}  // namespace feedloom
