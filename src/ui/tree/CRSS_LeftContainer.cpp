#include "ui/tree/CRSS_LeftContainer.h"

#include <QMenu>
#include <QPainter>
#include <QPointer>
#include <QSignalBlocker>
#include <QTimer>
#include <algorithm>
#include <iterator>
#include <utility>

#include "look/SkinText.h"
#include "skin/Keys.h"
#include "skin/Labels.h"
#include "store/Posts.h"
#include "ui/ChannelReport.h"
#include "ui/CommandKeys.h"
#include "ui/Desk.h"
#include "ui/Refreshing.h"
#include "ui/UndoableSteps.h"
#include "ui/tree/CRSS_GroupTreeCtrl.h"
#include "ui/tree/CRSS_LeftToolBarWnd.h"
#include "ui/tree/SelectedPosts.h"
#include "ui/tree/TimerPeriods.h"
#include "ui/tree/TreeLoader.h"
#include "ui/tree/TreeMemory.h"

namespace feedloom {
namespace {

RowTexts LoadRowTexts(Desk& desk, const Refreshing& refreshing) {
  const Skin& skin = desk.GetSkin();
  const Clock& clock = desk.GetStore().GetClock();
  return {.report =
              [&](const ChannelRow& channel) {
                const FeedVisit visit = refreshing.LastVisit(channel);
                return ChannelReport(skin, channel, visit, clock.Now());
              },
          .isDead =
              [&](const ChannelRow& channel) {
                const auto now = std::chrono::floor<std::chrono::seconds>(clock.Now());
                return IsDead(refreshing.LastVisit(channel), now);
              },
          .unread = skin.GetText(kSectionTexts, kTextRowUnread),
          .isNew = skin.GetText(kSectionTexts, kTextRowNew),
          .isFailing = skin.GetText(kSectionTexts, kTextRowFailing)};
}

// Whether the row `key` stays in a tree with this content.
bool Holds(const TreeContent& content, const RowKey& key) {
  const auto find = [&key](const auto& rows) {
    return std::ranges::find_if(rows, [&key](const auto& row) { return row.id == key.id; });
  };
  if (key.kind == RowKind::Folder) return find(content.folders) != content.folders.end();
  if (key.kind == RowKind::Cabinet) return find(content.cabinets) != content.cabinets.end();
  if (key.kind == RowKind::CabinetRoot) return true;
  const auto channel = find(content.channels);
  return channel != content.channels.end() && Holds(content, {RowKind::Folder, channel->folderId});
}

void Restart(QTimer& timer, const std::optional<std::chrono::milliseconds>& period) {
  period ? timer.start(*period) : timer.stop();
}

}  // namespace

CRSS_LeftContainer::CRSS_LeftContainer(Desk& desk, Refreshing& refreshing, Subscribing& subscribing,
                                       Reading& reading, QWidget* parent)
    : QWidget(parent),
      desk_(desk),
      reading_(reading),
      model_(desk.GetStore().TextCodePage(), LoadRowTexts(desk, refreshing)),
      border_(LoadPaneFrame(desk.GetSkin())),
      toolbar_(new CRSS_LeftToolBarWnd(desk.GetSkin(), this)),
      tree_(new CRSS_GroupTreeCtrl(desk.GetSkin(), model_, this)),
      updateTimer_(new QTimer(this)),
      notificationTimer_(new QTimer(this)),
      commands_(desk, refreshing, subscribing, reading, model_, *tree_,
                [this] { emit SettingsWanted(); }) {
  setFocusProxy(tree_);
  tree_->setAccessibleName(SkinText(desk.GetSkin(), kTextTreeName));
  updateTimer_->setSingleShot(true);
  connect(updateTimer_, &QTimer::timeout, this, [this] { Run(kCommandRefreshDue); });
  connect(notificationTimer_, &QTimer::timeout, this, &CRSS_LeftContainer::NoticeIsDue);
  connect(tree_, &CRSS_GroupTreeCtrl::RowSelected, this,
          [this] { ListSelectedPosts(FirstPost::First); });
  connect(tree_, &CRSS_GroupTreeCtrl::RowReached, this, [this] {
    ListSelectedPosts(tree_->SelectsCarefully() ? FirstPost::Glimpse : FirstPost::First);
  });
  connect(tree_, &CRSS_GroupTreeCtrl::MenuRequested, this, &CRSS_LeftContainer::ShowRowMenu);
  SetUpToolBar();
  for (const int command : {kCommandMoveUp, kCommandMoveDown}) {
    OnKeysOf(command, *tree_, [this, command] { commands_.Run(command); });
  }
  connect(tree_, &CRSS_GroupTreeCtrl::DroppedNowhere, this,
          [this] { desk_.ReportMessage(GetLabel(desk_.GetSkin(), kLabelDropNowhere)); });
  model_.OnDrop([this](auto& moved, auto& place) { commands_.MoveTo(moved, place); });
  model_.OnPosts([this](int cabinet, auto& posts) { commands_.Save(posts, cabinet); });
  OnKeysOf(kCommandFocusSearch, *this, [this] { emit SearchWanted(); });
  CountChanges();
  RestartUpdateTimer();
  RestartNotificationTimer();
}

// The tree loses the keyboard while it goes, when the pane's members have gone.
CRSS_LeftContainer::~CRSS_LeftContainer() { tree_->disconnect(this); }

void CRSS_LeftContainer::SetUpToolBar() {
  struct Entry {
    CRSS_LeftToolBarWnd::Button button;
    int command;
  };
  static constexpr Entry kCommands[] = {{CRSS_LeftToolBarWnd::kUpdate, kCommandRefreshAll},
                                        {CRSS_LeftToolBarWnd::kAddChannel, kCommandAddChannel},
                                        {CRSS_LeftToolBarWnd::kDirectory, kCommandDirectory}};
  connect(toolbar_, &CRSS_LeftToolBarWnd::Clicked, this,
          [this](CRSS_LeftToolBarWnd::Button clicked) {
            const auto* const entry = std::ranges::find(kCommands, clicked, &Entry::button);
            if (entry != std::end(kCommands)) return commands_.Run(entry->command);
            ShowMenu(commands_.WholeMenu(), desk_.GetSkin(),
                     toolbar_->mapToGlobal(toolbar_->MenuPosition()), this,
                     [this](int command) { Run(command); });
          });
}

// Marks and states are not read together with what a revision is for.
void CRSS_LeftContainer::CountChanges() {
  const auto count = [this] {
    ++revision_;
    emit Changed();
  };
  connect(&model_, &QAbstractItemModel::rowsInserted, this, count);
  connect(&model_, &QAbstractItemModel::rowsRemoved, this, count);
  connect(&model_, &QAbstractItemModel::rowsMoved, this, count);
  connect(&model_, &QAbstractItemModel::modelReset, this, count);
  connect(&model_, &QAbstractItemModel::dataChanged, this,
          [count](const auto&, const auto&, const QList<int>& roles) {
            if (roles.contains(Qt::DisplayRole)) count();
          });
}

void CRSS_LeftContainer::ShowTree(TreeContent content) {
  content.cabinetTitle = desk_.GetSkin().GetText(kSectionTexts, kTextCabinetTitle);
  model_.Load(std::move(content));
}

void CRSS_LeftContainer::UpdateTree(const TreeContent& content) {
  const auto selected = SelectedRow();
  if (selected && !Holds(content, *selected)) {
    // A view whose current row goes would select the next one and so show, and read, its posts.
    tree_->ClearSelection();
    if (desk_.State().listShowsSelection) reading_.ListPosts(ListMode::Selection, {});
  }
  tree_->RunChange([&] { model_.Update(content); });
}

void CRSS_LeftContainer::ShowUndone(const std::optional<UndoableRow>& row) {
  ++revision_;
  if (const auto tree = ReadTree(desk_.GetStore())) UpdateTree(*tree);
  const QModelIndex shown = row ? model_.Find(row->key) : QModelIndex();
  if (!shown.isValid()) return reading_.ReloadSelection();
  const QSignalBlocker blocker(tree_);  // or the first post would be shown, and marked read
  if (row->key.kind == RowKind::Folder) tree_->setExpanded(shown, row->isOpen);
  tree_->setCurrentIndex(shown);
  ReloadSelection();
}

void CRSS_LeftContainer::Run(int command) {
  if (command == kCommandUnreadOnly) return emit UnreadOnlyWanted(!desk_.State().isUnreadOnly);
  commands_.Run(command);
}

void CRSS_LeftContainer::Settle() { tree_->Settle(); }

void CRSS_LeftContainer::ShowUnreadOnly(bool isOn) { tree_->ShowUnreadOnly(isOn); }

void CRSS_LeftContainer::RestartUpdateTimer() {
  if (desk_.GetSkin().Config().UpdatesByHost()) return updateTimer_->stop();
  Restart(*updateTimer_, UpdatePeriod(desk_.State().liveSettings));
}

void CRSS_LeftContainer::RestartNotificationTimer() {
  Restart(*notificationTimer_, NotificationPeriod(desk_.State().liveSettings));
}

int CRSS_LeftContainer::SetChannelUnread(int channelId, int count) {
  return model_.SetChannelUnread(channelId, count);
}

void CRSS_LeftContainer::SetChannelsNew(std::span<const int> channelIds, bool isNew) {
  for (const int id : channelIds) model_.SetChannelNew(id, isNew);
  tree_->viewport()->repaint();  // the mark lies outside the area that the view repaints
}

void CRSS_LeftContainer::SetChannelNewByMessage(int channelId, bool isNew) {
  model_.SetChannelNewByMessage(channelId, isNew);
  tree_->viewport()->repaint();
}

void CRSS_LeftContainer::SetChannelState(int channelId, int state) {
  model_.SetChannelState(channelId, state);
}

void CRSS_LeftContainer::RecountUnread(bool ofScrapPosts) {
  ++revision_;
  const auto recount = ofScrapPosts ? ReadCabinetCounts : ReadChannelCounts;
  recount(desk_.GetStore(), model_);
}

int CRSS_LeftContainer::ChannelUnread(int channelId) const {
  const ChildRow* const channel = model_.ChildAt(model_.FindChannel(channelId));
  return channel == nullptr ? 0 : channel->unreadCount;
}

void CRSS_LeftContainer::AddStoredChannel(int channelId) {
  if (model_.FindChannel(channelId).isValid()) return;
  auto channel = ReadChannel(desk_.GetStore(), channelId);
  if (!channel) return;
  channel->unreadCount = 0;
  model_.AppendChannel(std::move(*channel));
}

void CRSS_LeftContainer::AppendChannel(ChannelRow channel) {
  AppendMissingFolder(desk_.GetStore(), channel.folderId, model_);
  model_.AppendChannel(std::move(channel));
}

void CRSS_LeftContainer::MoveChannel(int channelId, int folderId) {
  AppendMissingFolder(desk_.GetStore(), folderId, model_);
  model_.MoveChannel(channelId, folderId);
}

SubscriptionList CRSS_LeftContainer::Subscriptions() const {
  return SubscriptionsOf(model_.Groups());
}

void CRSS_LeftContainer::SetBusy(bool busy) { tree_->SetOwnCursor(!busy); }

void CRSS_LeftContainer::AddChannel(const std::string& address) {
  const QPointer tree(tree_);
  commands_.AddChannel(address);
  if (tree) tree->viewport()->repaint();
}

void CRSS_LeftContainer::UnreadPostWasSaved(int cabinetId) {
  model_.RaiseCabinetUnread(cabinetId);
  tree_->viewport()->repaint();
}

// A search result has no owner id. Looking up the one post costs much less than recounting all
// channels.
void CRSS_LeftContainer::PostWasRead(const PostRow& post, bool isScrapPost) {
  ++revision_;
  if (post.ownerId == 0 && isScrapPost) return reading_.RecountUnread(true);
  if (isScrapPost) return model_.LowerCabinetUnread(post.ownerId);
  std::vector<PostRow> stored;
  if (post.ownerId == 0) FindPost(desk_.GetStore(), post.id, stored);
  model_.LowerChannelUnread(stored.empty() ? post.ownerId : stored.front().ownerId);
}

std::string CRSS_LeftContainer::ChannelTitle(int channelId) const {
  const ChildRow* const channel = model_.ChildAt(model_.FindChannel(channelId));
  return channel == nullptr ? std::string() : channel->title;
}

std::optional<RowKey> CRSS_LeftContainer::SelectedRow() const {
  return model_.KeyOf(tree_->SelectedRow());
}

bool CRSS_LeftContainer::SelectionHolds(int channelId) const {
  const QModelIndex channel = model_.FindChannel(channelId);
  const QModelIndex selected = tree_->SelectedRow();
  return channel.isValid() && (selected == channel || selected == channel.parent());
}

void CRSS_LeftContainer::ReloadSelection() {
  if (auto list = PostsOf(desk_.GetStore(), SelectedRow())) {
    reading_.RelistPosts(std::move(*list));
  }
}

void CRSS_LeftContainer::ListSelectedPosts(FirstPost shown) {
  const auto row = SelectedRow();
  if (row && row->kind == RowKind::Channel) SetChannelsNew({&row->id, 1}, false);
  auto list = PostsOf(desk_.GetStore(), row);
  // After a failure the list is emptied: it must not show posts of a row that is no longer
  // selected.
  reading_.ListPosts(ListMode::Selection, std::move(list).value_or(PostList()), shown);
}

void CRSS_LeftContainer::GoToUnreadRow(bool forward) {
  const QModelIndex row = model_.FindUnread(tree_->SelectedRow(), forward);
  if (!SelectQuietly(row)) return TellText(desk_, kTextNoneUnread);
  ListSelectedPosts(forward ? FirstPost::FirstUnread : FirstPost::LastUnread);
}

bool CRSS_LeftContainer::SelectQuietly(const QModelIndex& row) {
  const QSignalBlocker blocker(tree_);  // or the first post would be shown
  if (row.isValid()) tree_->setCurrentIndex(row);
  return row.isValid();
}

bool CRSS_LeftContainer::Select(const RowKey& row) { return SelectQuietly(FindRow(model_, row)); }

bool CRSS_LeftContainer::SelectUnreadFolder() { return SelectQuietly(FindUnreadFolder(model_)); }

TreeMemory CRSS_LeftContainer::Memory() const { return ReadTreeMemory(*tree_, model_); }

void CRSS_LeftContainer::Close(const std::vector<RowKey>& groups) {
  for (const RowKey& group : groups) tree_->collapse(FindRow(model_, group));
}

void CRSS_LeftContainer::ShowRowMenu(const QModelIndex& row, const QPoint& place) {
  const auto menu = commands_.MenuOf(row);
  if (!menu) return;
  tree_->MarkMenuRow(row);
  const QMenu& shown = ShowMenu(
      *menu, desk_.GetSkin(), place, this,
      [this, acted = QPersistentModelIndex(row)](int command) { commands_.Run(command, acted); });
  connect(&shown, &QMenu::aboutToHide, tree_, [this] { tree_->MarkMenuRow({}); });
}

void CRSS_LeftContainer::resizeEvent(QResizeEvent* /*event*/) {
  const int top = toolbar_->sizeHint().height();
  toolbar_->setGeometry(0, 0, width(), top);
  tree_->setGeometry(ViewArea(rect(), top));
}

void CRSS_LeftContainer::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  DrawPaneFrame(painter, rect(), toolbar_->height(), border_);
}

}  // namespace feedloom
