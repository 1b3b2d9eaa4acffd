#include "shell/CRSS_MainFrame.h"

#include <QCoreApplication>
#include <QShortcut>
#include <thread>
#include <utility>

#include "exchange/OpmlImporter.h"
#include "ingest/FeedChecker.h"
#include "ingest/FeedMemory.h"
#include "shell/Arrivals.h"
#include "shell/Feedloom.h"
#include "shell/FrameActions.h"
#include "shell/FrameKeys.h"
#include "shell/FrameRefresh.h"
#include "shell/SettingsStore.h"
#include "shell/StartContent.h"
#include "skin/FilledTexts.h"
#include "skin/Keys.h"
#include "store/Backup.h"
#include "ui/browser/CRSS_RightBottomContainer.h"
#include "ui/browser/EngineProxy.h"
#include "ui/list/CRSS_RightTopContainer.h"
#include "ui/notice/CRSS_AnnounceDlg.h"
#include "ui/notice/NoticeMotion.h"
#include "ui/panel/ControlPanel.h"
#include "ui/tree/CRSS_LeftContainer.h"
#include "vxctrl/QtText.h"
#include "vxctrl/SkinPalette.h"
#include "vxctrl/SkinText.h"

namespace feedloom {
namespace {

constexpr int kLeftMinimumWidth = 251;  // pixels
constexpr int kTopHeight = 200;
// The smallest sizes that leave room for the toolbar's controls and a few rows.
constexpr QSize kSmallestList(330, 130);
constexpr QSize kSmallestBrowser(330, 150);
constexpr int kRest = 1 << 16;  // more than any window has: the splitter cuts it down

void SendToWindow(QWidget* window, unsigned number, std::intptr_t lParam) {
  WindowMessage message(number, 0, lParam);
  if (window != nullptr) QCoreApplication::sendEvent(window, &message);
}

}  // namespace

CRSS_MainFrame::CRSS_MainFrame(HostLookup lookup, const ModulePaths& paths, Settings& liveSettings,
                               QWidget* parent)
    : VxSplitter(Qt::Horizontal, parent),
      interfaceThread_(std::make_shared<InterfaceThread>()),
      registry_(paths.registry),
      skin_(std::move(lookup), HostConfig(registry_)),
      store_(std::make_shared<Store>(
          GetDbPath(paths.module), skin_.Config().GetCodePage(), SystemClock(),
          [this, thread = interfaceThread_](std::string_view text) {
            thread->Run([this, copy = std::string(text)] { ReportFailure(copy); });
          },
          std::this_thread::get_id())),
      services_(std::make_shared<IngestServices>(
          IngestServices{store_, registry_, SystemClock(), skin_.Config().GetWorkDir(),
                         FeedMemoryPath(skin_.Config().GetWorkDir())})),
      state_(liveSettings),
      actions_(MakeFrameActions(*this)) {
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
  TakeDown();
  BackupDatabase(*store_);
}

// The panes use members of the frame and must be deleted before them. StopRefresh comes first, so
// that no thread sends the panes a message while they are deleted.
void CRSS_MainFrame::TakeDown() {
  StopRefresh();
  delete left_;
  delete rightTop_;
  delete rightBottom_;
}

void CRSS_MainFrame::StopRefresh() {
  interfaceThread_->Close();
  if (arrivals_) arrivals_->Stop();
  feedChecker_.reset();
  importer_.reset();
  retry_.reset();
  refresh_.reset();
}

void CRSS_MainFrame::EndRefresh() {
  StopRefresh();
  if (hostShowsBusy_) OnRefreshMessage(kMessageRefreshEnded);
}

void CRSS_MainFrame::BuildPanes() {
  setPalette(LoadSkinPalette(skin_));
  UseProxyInEngine(ReadProxySettings(registry_));
  left_ = new CRSS_LeftContainer(*this, this);
  left_->setMinimumWidth(kLeftMinimumWidth);
  auto* const right = new VxSplitter(Qt::Vertical, this);
  rightTop_ = new CRSS_RightTopContainer(*this, right);
  rightBottom_ = new CRSS_RightBottomContainer(*this, right);
  rightTop_->setMinimumSize(kSmallestList);
  rightBottom_->setMinimumSize(kSmallestBrowser);
  right->setSizes({kTopHeight, kRest});
  right->setStretchFactor(1, 1);
  right->setChildrenCollapsible(false);
  setSizes({kLeftMinimumWidth, kRest});
  setStretchFactor(1, 1);
  setChildrenCollapsible(false);
  setFocusProxy(left_);
  handle(1)->setAccessibleName(SkinText(skin_, kTextColumnDivider));
  right->handle(1)->setAccessibleName(SkinText(skin_, kTextRowDivider));
  connect(rightBottom_, &CRSS_RightBottomContainer::PageShown, this, &CRSS_MainFrame::PageShown);
  SetUpKeys(*right);
}

void CRSS_MainFrame::SetUpKeys(VxSplitter& right) {
  const auto onKey = [this](const QKeySequence& key, auto run) {
    auto* const shortcut = new QShortcut(key, this);
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    connect(shortcut, &QShortcut::activated, this, run);
  };
  onKey(Qt::Key_F5, [this] { left_->RefreshSelection(); });
  onKey(Qt::SHIFT | Qt::Key_F5, [this] { left_->RefreshAll(); });
  auto* const keys = new FrameKeys(*this, {left_, rightTop_, rightBottom_}, {this, &right});
  keys->AddMenuKey(*left_);
  keys->AddMenuKey(*rightTop_);
}

// Messages of the host and of the refresh.

bool CRSS_MainFrame::event(QEvent* event) {
  if (event->type() == QEvent::WindowActivate && isTreeRead_) arrivals_->LookForChanges();
  if (event->type() != WindowMessage::kType) return VxSplitter::event(event);
  auto& message = static_cast<WindowMessage&>(*event);
  message.result = OnMessage(message.number, message.wParam, message.lParam);
  return true;
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
      arrivals_->OnMessage(number, static_cast<int>(wParam), static_cast<int>(lParam));
      if (number == kMessageChannelResult && wParam == kRunEnded) SetRefreshBusy(false);
      break;
    case kMessageListImported:
      OnListImported(wParam == 0);
      break;
    case kMessageShowTextAgain:
      SendText();
      break;
    case kMessageOpenPanel:
      left_->OpenSettings();
      break;
    case kMessageRefreshAll:
      left_->RefreshAll();
      break;
    default:
      break;
  }
  return 0;
}

void CRSS_MainFrame::OnRefreshMessage(unsigned number) {
  hostShowsBusy_ = number == kMessageRefreshBegan;
  if (hostShowsBusy_) SetRefreshBusy(true);
  SendToWindow(window(), number, 0);
}

void CRSS_MainFrame::SetRefreshBusy(bool busy) {
  left_->SetBusy(busy);
  if (busy) {
    setCursor(Qt::WaitCursor);
  } else {
    unsetCursor();
  }
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

void CRSS_MainFrame::ApplyPanelSettings(const Settings& settings) {
  state_.liveSettings = settings_ = WithModesAsFlags(settings);
  SetPreviewMode();
  rightBottom_->Redraw();
  left_->RestartUpdateTimer();
  left_->RestartNotificationTimer();
}

void CRSS_MainFrame::SetPreviewMode() { rightBottom_->SetMode(settings_.previewMode == 0 ? 1 : 0); }

// The announced total is set also when nothing is announced. Otherwise posts that arrive after the
// user has read others would be offset by those and never be announced.
void CRSS_MainFrame::NotifyOfNewPosts() {
  if (NewPostCount(state_.unreadTotal, state_.announcedTotal) > 0) {
    ShowNewPostNotification();
  } else {
    state_.announcedTotal = state_.unreadTotal;
  }
}

void CRSS_MainFrame::ShowNewPostNotification() {
  if (announcement_) announcement_->close();
  announcement_ = new CRSS_AnnounceDlg(skin_, this);
  connect(announcement_, &CRSS_AnnounceDlg::Clicked, this, [this] {
    QWidget* const host = window();
    host->setWindowState(host->windowState() & ~Qt::WindowMinimized);
    host->raise();
    host->activateWindow();
    left_->ListToday();
  });
  const int count = NewPostCount(state_.unreadTotal, state_.announcedTotal);
  state_.announcedTotal = state_.unreadTotal;
  announcement_->Announce(count, NoticeAlphaValue(settings_.newFeedMsgTransparency));
}

// The functions of the interface Frame.

void CRSS_MainFrame::ReportMessage(std::string_view text) {
  isFailureShown_ = false;
  messageText_ = text;
  SendText();
}

void CRSS_MainFrame::SendText() {
  SendToWindow(parentWidget(), kMessageShowText, reinterpret_cast<std::intptr_t>(&messageText_));
}

MsgBoxAnswer CRSS_MainFrame::ShowTextMessage(const char* section, const char* key,
                                             MsgBoxKind kind) {
  const std::string text = WithLineBreaks(skin_.GetText(section, key));
  return ShowMsgBox(skin_, ToQString(store_->TextCodePage(), text), kind, this);
}

bool CRSS_MainFrame::IsAnyChannelQueued(std::span<const int> channelIds) const {
  return refresh_ && refresh_->Engine().IsAnyChannelQueued(channelIds);
}

void CRSS_MainFrame::QueueRefresh(std::vector<RefreshEntry> entries) {
  if (refresh_) refresh_->Engine().EnqueueAll(std::move(entries));
}

void CRSS_MainFrame::StartRefresh() {
  if (refresh_) refresh_->Engine().StartRefresh();
}

void CRSS_MainFrame::CheckFeed(const std::string& address,
                               std::function<void(const FeedCheckAnswer&)> onAnswer) {
  if (feedChecker_) feedChecker_->Start(address, std::move(onAnswer));
}

void CRSS_MainFrame::StopFeedCheck() {
  if (feedChecker_) feedChecker_->Stop();
}

// While the tree is not read, a new row comes into it by the reading.

void CRSS_MainFrame::FolderWasAdded(const FolderRow& folder) {
  retry_ ? retry_->ReadNow() : left_->AppendFolder(folder);
}

void CRSS_MainFrame::CabinetWasAdded(const CabinetRow& cabinet) {
  retry_ ? retry_->ReadNow() : left_->AppendCabinet(cabinet);
}

void CRSS_MainFrame::ChannelWasAdded(const ChannelRow& channel) {
  retry_ ? retry_->ReadNow() : left_->AppendChannel(channel);
}

void CRSS_MainFrame::ChannelWasMoved(int channelId, int folderId) {
  left_->MoveChannel(channelId, folderId);
}

void CRSS_MainFrame::ListPosts(ListMode mode, PostList list, FirstShown shown) {
  state_.listMode = mode;
  state_.listShowsSelection = mode == ListMode::Selection && !list.wereSearched;
  rightTop_->Fill(std::move(list));
  rightTop_->ShowFirst(shown);
}

void CRSS_MainFrame::RelistPosts(PostList list) {
  // Rows are matched by post id, and saved posts have ids of their own: only a list of the same
  // selection may keep its scroll position.
  const bool isSameList = std::exchange(state_.listShowsSelection, true);
  state_.listMode = ListMode::Selection;
  isSameList ? rightTop_->Refill(std::move(list)) : rightTop_->Fill(std::move(list));
}

void CRSS_MainFrame::FocusSearch() { rightTop_->FocusSearch(); }

void CRSS_MainFrame::GoToUnreadPost(bool forward) { rightTop_->GoToUnread(forward); }

void CRSS_MainFrame::ShowPost(const PostRow& post) { rightBottom_->ShowPost(post); }

void CRSS_MainFrame::ShowMainPage() { rightBottom_->ShowMainPage(); }

bool CRSS_MainFrame::ShowsRemoteImages() const {
  return registry_.ReadDword(kModuleKey, kValueBlockRemoteImages).value_or(0) == 0;
}

void CRSS_MainFrame::AddChannel(const std::string& address) { left_->AddChannel(address); }

void CRSS_MainFrame::PostIsSaved(int cabinetId) { left_->PostIsSaved(cabinetId); }

void CRSS_MainFrame::PostWasRead(const PostRow& post, bool isScrapPost) {
  left_->PostWasRead(post, isScrapPost);
}

void CRSS_MainFrame::RecountUnread(bool ofScrapPosts) { arrivals_->Recount(ofScrapPosts); }

void CRSS_MainFrame::ReloadSelection() {
  if (state_.listShowsSelection) left_->ReloadSelection();
}

void CRSS_MainFrame::GoToUnreadRow(bool forward) { left_->GoToUnreadRow(forward); }

}  // namespace feedloom
