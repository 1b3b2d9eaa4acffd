#include "shell/CRSS_MainFrame.h"

#include <QApplication>
#include <thread>
#include <utility>

#include "fetch/FeedMemory.h"
#include "look/SkinPalette.h"
#include "look/SkinText.h"
#include "shell/Arrivals.h"
#include "shell/ChannelNotice.h"
#include "shell/Feedloom.h"
#include "shell/FirstReading.h"
#include "shell/FrameCommands.h"
#include "shell/FrameKeys.h"
#include "shell/FrameMemory.h"
#include "shell/PaneSizes.h"
#include "shell/ReadingRetry.h"
#include "shell/SettingsStore.h"
#include "shell/SiteIconKeeper.h"
#include "shell/SubscriptionExchange.h"
#include "shell/TextIndexer.h"
#include "skin/Colors.h"
#include "skin/Keys.h"
#include "store/Backup.h"
#include "ui/Commands.h"
#include "ui/browser/CRSS_RightBottomContainer.h"
#include "ui/browser/EngineProxy.h"
#include "ui/dialogs/Dialogs.h"
#include "ui/dialogs/KeySheet.h"
#include "ui/filters/Filters.h"
#include "ui/list/CRSS_RightTopContainer.h"
#include "ui/notice/CRSS_AnnounceDlg.h"
#include "ui/panel/ControlPanel.h"
#include "ui/tree/CRSS_LeftContainer.h"

namespace feedloom {

CRSS_MainFrame::CRSS_MainFrame(HostLookup lookup, const ModulePaths& paths, Settings& liveSettings,
                               std::optional<KeptView>& kept, QWidget* parent)
    : VxSplitter(Qt::Horizontal, parent),
      interfaceThread_(std::make_shared<InterfaceThread>()),
      registry_(paths.registry),
      skin_(std::move(lookup), HostConfig(registry_)),
      store_(std::make_shared<Store>(
          GetDbPath(paths.module), skin_.Config().GetCodePage(), SystemClock(),
          [this, thread = interfaceThread_](std::string_view text) {
            thread->Run([this, copy = std::string(text)] { status_.ReportFailure(copy); });
          },
          std::this_thread::get_id())),
      services_(std::make_shared<FetchServices>(FetchServices{
          store_, registry_, SystemClock(), skin_.Config().GetWorkDir(),
          FeedMemoryPath(skin_.Config().GetWorkDir()), skin_.Config().ReadsLeniently()})),
      state_(liveSettings),
      kept_(kept) {
  settings_ = LoadFrameSettings(registry_);
  try {
    const WriteMark mark = ReadWriteMark(*store_);
    FirstReading reading(*store_, settings_);
    BuildPanes();
    ShowMainPage();
    BeginLife(reading, mark);
  } catch (...) {
    TakeDown();
    throw;
  }
}

CRSS_MainFrame::~CRSS_MainFrame() {
  StopRefresh();
  kept_ = memory_->Leave();
  TakeDown();
  BackupDatabase(*store_);
}

// The panes use members of the frame and must be deleted before them. StopRefresh comes first, so
// that no thread sends the panes a message while they are deleted.
void CRSS_MainFrame::TakeDown() {
  disconnect(qApp, nullptr, this, nullptr);
  StopRefresh();
  delete left_;
  delete rightTop_;
  delete rightBottom_;
}

void CRSS_MainFrame::BuildPanes() {
  setPalette(LoadSkinPalette(skin_));
  UseProxyInEngine(ReadProxySettings(registry_));
  left_ = new CRSS_LeftContainer(*this, refresh_, *this, *this, this);
  right_ = new VxSplitter(Qt::Vertical, this);
  rightTop_ = new CRSS_RightTopContainer(*this, *this, *this, right_);
  rightBottom_ = new CRSS_RightBottomContainer(*this, *this, *this, browserServices_, right_);
  sizes_ = std::make_unique<PaneSizes>(*this, *right_,
                                       [this](bool isBeside) { ShowListPlace(isBeside); });
  memory_ = std::make_unique<FrameMemory>(FramePanes{*sizes_, *left_, *rightTop_, *rightBottom_},
                                          *this, *this, registry_, kept_);
  PlaceList();
  ShowUnreadOnly(memory_->IsUnreadOnly());
  setFocusProxy(left_);
  handle(1)->setAccessibleName(SkinText(skin_, kTextColumnDivider));
  connect(rightBottom_, &CRSS_RightBottomContainer::PageShown, this, &CRSS_MainFrame::PageShown);
  ConnectTree();
  connect(qApp, &QApplication::focusChanged, this, &CRSS_MainFrame::TurnToPost);
  SetUpKeys(*right_);
}

void CRSS_MainFrame::PlaceList() { sizes_->PlaceList(skin_.Config().GetListPlace()); }

void CRSS_MainFrame::ShowListPlace(bool isBeside) {
  rightTop_->SetTwoLines(isBeside);
  right_->handle(1)->setAccessibleName(
      SkinText(skin_, isBeside ? kTextListDivider : kTextRowDivider));
}

// Whoever clicks into the list turns to the post under the pointer.
void CRSS_MainFrame::TurnToPost(const QWidget* /*before*/, const QWidget* focus) {
  const bool isPress = QApplication::mouseButtons() != Qt::NoButton;
  const QWidget& page = *rightBottom_->focusProxy();
  const bool isInPage = focus == &page || page.isAncestorOf(focus);
  if (isInPage || (focus == rightTop_->focusProxy() && !isPress)) rightTop_->MarkGlimpsed();
}

void CRSS_MainFrame::ConnectTree() {
  connect(left_, &CRSS_LeftContainer::SettingsWanted, this, &CRSS_MainFrame::OpenControlPanel);
  connect(left_, &CRSS_LeftContainer::NoticeIsDue, this, &CRSS_MainFrame::ShowNewPostNotification);
  connect(left_, &CRSS_LeftContainer::UnreadOnlyWanted, this, &CRSS_MainFrame::ShowUnreadOnly);
  connect(rightTop_, &CRSS_RightTopContainer::UnreadOnlyWanted, this,
          &CRSS_MainFrame::ShowUnreadOnly);
  connect(left_, &CRSS_LeftContainer::Changed, this, [this] { news_.OnChange(); });
  connect(left_, &CRSS_LeftContainer::SearchWanted, this, [this] { rightTop_->FocusSearch(); });
}

// Behind the panes.

void CRSS_MainFrame::BeginLife(FirstReading& reading, const WriteMark& mark) {
  SetPreviewMode();
  const BackgroundJobs::Post toHere = ToInterfaceThread();
  arrivals_ = std::make_unique<Arrivals>(*this, *this, *left_, store_, mark, toHere);
  if (skin_.Config().AnnouncesChannels()) {
    channelNotice_ = std::make_unique<ChannelNotice>(*this, *this, settings_, *this);
  }
  exchange_ = std::make_unique<SubscriptionExchange>(
      *this, refresh_, *this, services_, toHere,
      [this](int channels, int present) { return AskHowToImport(*this, this, channels, present); },
      [this](const auto& name, int channels) { return AskToImport(*this, this, name, channels); });
  icons_ = std::make_unique<SiteIconKeeper>(
      services_, skin_.Config(), SkinColor(skin_, kColorTreeGround), toHere,
      [this](ChannelIcons icons) { left_->ShowIcons(std::move(icons)); });
  if (skin_.Config().SearchesTexts()) {
    indexer_ = std::make_unique<TextIndexer>(store_, toHere,
                                             [this](int percent) { TellIndexed(percent); });
    indexer_->Start();
  }
  FirstContent start = reading.Finish();
  for (const std::string& failure : reading.Failures()) status_.ReportFailure(failure);
  ShowStart(std::move(start));
}

void CRSS_MainFrame::ShowStart(FirstContent start) {
  const bool isTreeRead = start.tree.has_value();
  status_.SetTreeRead(isTreeRead);
  state_.unreadTotal = state_.announcedTotal = isTreeRead ? start.unread : -1;
  left_->ShowTree(std::move(start.tree).value_or(TreeContent()));
  isTreeRead ? memory_->TakeUp() : RetryStart();
}

void CRSS_MainFrame::RetryStart() {
  retry_ = std::make_unique<ReadingRetry>(store_, settings_, ToInterfaceThread(),
                                          [this](FirstContent start) {
                                            retry_.reset();
                                            status_.ClearFailure();
                                            ShowStart(std::move(start));
                                          });
}

void CRSS_MainFrame::SetUpKeys(VxSplitter& right) {
  new FrameCommands(*this, *this, {*left_, *rightTop_, *rightBottom_});
  auto* const keys = new FrameKeys(*this, {left_, rightTop_, rightBottom_}, {this, &right});
  keys->AddMenuKey(*left_);
  keys->AddMenuKey(*rightTop_);
}

// Messages of the host and of the refresh.

bool CRSS_MainFrame::event(QEvent* event) {
  if (drops_.Handle(*event)) return true;
  if (event->type() == QEvent::WindowActivate && status_.IsTreeRead()) arrivals_->LookForChanges();
  if (event->type() == QEvent::ShortcutOverride && IsForFocus(static_cast<QKeyEvent&>(*event))) {
    event->accept();
    return true;
  }
  if (event->type() != WindowMessage::kType) return VxSplitter::event(event);
  auto& message = static_cast<WindowMessage&>(*event);
  message.result = OnMessage(message.number, message.wParam, message.lParam);
  return true;
}

void CRSS_MainFrame::resizeEvent(QResizeEvent* event) {
  VxSplitter::resizeEvent(event);
  if (sizes_) sizes_->Fit();
}

bool CRSS_MainFrame::focusNextPrevChild(bool next) {
  QWidget* const stop = next ? NextTabStop(*this) : nullptr;
  if (stop == nullptr) return VxSplitter::focusNextPrevChild(next);
  stop->setFocus(Qt::TabFocusReason);
  return true;
}

std::intptr_t CRSS_MainFrame::OnMessage(unsigned number, std::intptr_t wParam,
                                        std::intptr_t lParam) {
  switch (number) {
    case kMessageChannelResult:
    case kMessageChannelWorker:
    case kMessageChannelInserted:
      if (number == kMessageChannelResult && wParam == kRunEnded) return OnRunEnded(), 0;
      arrivals_->OnMessage(number, static_cast<int>(wParam), static_cast<int>(lParam));
      break;
    case kMessageListImported:
      EndImport(wParam == 0);
      break;
    case kMessageShowTextAgain:
      status_.Send();
      break;
    case kMessageOpenPanel:
      OpenControlPanel();
      break;
    case kMessageViewChanged:
      PlaceList();
      if (icons_) icons_->FollowHost();
      break;
    case kMessageRefreshAll:
      left_->Run(kCommandRefreshAll);
      break;
    case kMessageRefreshDue:
      left_->Run(kCommandRefreshDue);
      break;
    case kMessageStopRefresh:
      refresh_.StopRun();
      break;
    case kMessageUndo:
      left_->Run(kCommandUndo);
      break;
    case kMessageShowKeys:
      ShowKeySheet(skin_, this);
      break;
    case kMessageOpenFilters:
      OpenFilters();
      break;
    case kMessageShowNewPosts:
      news_.Show();
      break;
    case kMessageOpenContent:
      return OpenContent(lParam) ? 1 : 0;
    case kMessageShowUnreadOnly:
      if (wParam == 0 || wParam == 1) ShowUnreadOnly(wParam == 1);
      return state_.isUnreadOnly ? 1 : 0;
    default:
      break;
  }
  return 0;
}

bool CRSS_MainFrame::OpenContent(std::intptr_t content) {
  // NOLINTNEXTLINE(performance-no-int-to-ptr): a message carries a pointer as lParam
  const auto* const text = reinterpret_cast<const std::string*>(content);
  return text != nullptr && drops_.TakeHandedOver(*text);
}

std::optional<int> CRSS_MainFrame::UnreadCount() const {
  return status_.IsTreeRead() ? std::optional(left_->UnreadInChannels()) : std::nullopt;
}

// The control panel and the announcement of new posts.

void CRSS_MainFrame::OpenControlPanel() {
  if (std::exchange(isPanelOpen_, true)) return;
  const QPointer self(this);
  const SettingsAccess access{
      .load = [this] { return LoadPanelSettings(registry_); },
      .save = [this](const Settings& settings) { return SavePanelSettings(registry_, settings); }};
  const auto settings = EditSettings(*this, this, access);
  if (!self) return;
  isPanelOpen_ = false;
  if (settings) ApplyPanelSettings(*settings);
}

// The dialog may have changed stored posts: what it did comes into the window as another program's
// changes do.
void CRSS_MainFrame::OpenFilters() {
  if (!skin_.Config().OffersFilters() || QApplication::activeModalWidget()) return;
  const QPointer self(this);
  ShowFilters(
      *this, store_, [thread = interfaceThread_](auto work) { thread->Queue(std::move(work)); },
      this);
  if (self && status_.IsTreeRead()) arrivals_->LookForChanges();
}

void CRSS_MainFrame::ApplyPanelSettings(const Settings& settings) {
  state_.liveSettings = settings_ = WithModesAsFlags(settings);
  SetPreviewMode();
  rightBottom_->Redraw();
  left_->RestartUpdateTimer();
  left_->RestartNotificationTimer();
}

void CRSS_MainFrame::SetPreviewMode() { rightBottom_->SetMode(settings_.previewMode == 0 ? 1 : 0); }

void CRSS_MainFrame::ShowUnreadOnly(bool isOn) {
  if (std::exchange(state_.isUnreadOnly, isOn) == isOn) return;
  left_->ShowUnreadOnly(isOn);
  rightTop_->FollowUnreadOnly();
  SendToWindow(window(), kMessageUnreadOnlyShown, isOn ? 1 : 0, 0);
}

void CRSS_MainFrame::ShowNewPostNotification() {
  if (channelNotice_) return;
  auto* const notice = notice_.Announce(settings_.newFeedMsgTransparency, this);
  if (notice == nullptr) return;
  connect(notice, &CRSS_AnnounceDlg::Clicked, this, [this] {
    BringUp(*window());
    left_->ListToday();
  });
}

}  // namespace feedloom
