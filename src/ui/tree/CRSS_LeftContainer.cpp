#include "ui/tree/CRSS_LeftContainer.h"

#include <QPainter>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "skin/Keys.h"
#include "store/Cabinets.h"
#include "store/Channels.h"
#include "store/Counts.h"
#include "store/Folders.h"
#include "ui/Frame.h"
#include "ui/tree/CRSS_GroupTreeCtrl.h"
#include "ui/tree/CRSS_LeftToolBarWnd.h"
#include "ui/tree/RefreshEntries.h"
#include "ui/tree/SelectedPosts.h"
#include "ui/tree/UpdatePeriod.h"

namespace feedloom {
namespace {

constexpr QColor kBackground(0xF4, 0xF7, 0xF8);
constexpr QColor kTreeFrame(0x76, 0x8A, 0x8E);

// The line around the tree lies so far from the left, right and bottom edges.
constexpr int kTreeFrameInset = 5;

// The posts of the row; none when the store could not read them.
std::optional<PostList> PostsOf(Store& store, const GroupTreeModel& model,
                                const QModelIndex& index) {
  PostList list;
  const GroupRow* const group = model.GroupAt(index);
  const ChildRow* const child = model.ChildAt(index);
  const bool loaded = group != nullptr ? LoadSelectedPosts(store, group->kind, group->id, list)
                                       : LoadSelectedPosts(store, child->kind, child->id, list);
  if (!loaded) return std::nullopt;
  return list;
}

}  // namespace

CRSS_LeftContainer::CRSS_LeftContainer(Frame& frame, QWidget* parent)
    : QWidget(parent),
      frame_(frame),
      model_(frame.TheStore().TextCodePage()),
      leftBorder_(LoadSkinImage(frame.TheSkin(), kSectionLeft, kImageLeftMiddleLeft)),
      rightBorder_(LoadSkinImage(frame.TheSkin(), kSectionLeft, kImageLeftMiddleRight)),
      bottomBorder_(LoadThreePieces(frame.TheSkin(), kSectionLeft, kImageLeftBottomLeft,
                                    kImageLeftBottomMiddle, kImageLeftBottomRight)),
      toolbar_(new CRSS_LeftToolBarWnd(frame.TheSkin(), this)),
      tree_(new CRSS_GroupTreeCtrl(frame.TheSkin(), model_, this)),
      updateTimer_(new QTimer(this)) {
  setFocusProxy(tree_);
  updateTimer_->setSingleShot(true);
  connect(toolbar_, &CRSS_LeftToolBarWnd::UpdateClicked, this, &CRSS_LeftContainer::RefreshAll);
  connect(updateTimer_, &QTimer::timeout, this, &CRSS_LeftContainer::RefreshAll);
  connect(tree_, &CRSS_GroupTreeCtrl::RowSelected, this, &CRSS_LeftContainer::ListSelectedPosts);
  RestartUpdateTimer();
}

void CRSS_LeftContainer::LoadTree() {
  Store& store = frame_.TheStore();
  TreeContent content;
  LoadFolderList(store, content.folders);
  LoadChannelList(store, content.channels);
  content.cabinetTitle = frame_.TheSkin().GetText(kSectionTexts, kTextCabinetTitle);
  content.unreadInCabinets = CountUnreadInFolder(store, 0, true);
  LoadCabinetList(store, content.cabinets);
  model_.Load(std::move(content));
}

void CRSS_LeftContainer::RefreshAll() {
  frame_.QueueRefresh(RefreshEntriesOf(model_.Groups()));
  frame_.StartRefresh();
}

void CRSS_LeftContainer::RestartUpdateTimer() {
  const auto period = UpdatePeriod(frame_.State().liveSettings);
  period ? updateTimer_->start(*period) : updateTimer_->stop();
}

int CRSS_LeftContainer::SetChannelUnread(int channelId, int count) {
  return model_.SetChannelUnread(channelId, count);
}

void CRSS_LeftContainer::SetChannelNew(int channelId, bool isNew) {
  model_.SetChannelNew(channelId, isNew);
  tree_->viewport()->repaint();  // the mark lies left of what the view repaints by itself
}

void CRSS_LeftContainer::SetChannelState(int channelId, int state) {
  model_.SetChannelState(channelId, state);
}

int CRSS_LeftContainer::RecountChannels() {
  std::vector<ChannelRow> stored;
  if (!LoadChannelList(frame_.TheStore(), stored)) return 0;
  int added = 0;
  for (const ChannelRow& channel : stored) {
    added += model_.SetChannelUnread(channel.id, channel.unreadCount);
    model_.SetChannelState(channel.id, channel.state);
  }
  return added;
}

void CRSS_LeftContainer::AddStoredChannel(int channelId) {
  if (model_.FindChannel(channelId).isValid()) return;
  std::vector<ChannelRow> stored;
  LoadChannelList(frame_.TheStore(), stored);
  const auto channel = std::ranges::find(stored, channelId, &ChannelRow::id);
  if (channel == stored.end()) return;
  channel->unreadCount = 0;
  model_.AppendChannel(std::move(*channel));
}

void CRSS_LeftContainer::SetBusy(bool busy) { tree_->SetOwnCursor(!busy); }

void CRSS_LeftContainer::PostWasRead(int ownerId, bool isScrapPost) {
  isScrapPost ? model_.LowerCabinetUnread(ownerId) : model_.LowerChannelUnread(ownerId);
}

std::string CRSS_LeftContainer::ChannelTitle(int channelId) const {
  const ChildRow* const channel = model_.ChildAt(model_.FindChannel(channelId));
  return channel == nullptr ? std::string() : channel->title;
}

std::optional<int> CRSS_LeftContainer::SelectedChannel() const {
  const ChildRow* const child = model_.ChildAt(tree_->SelectedRow());
  if (child == nullptr || child->kind != RowKind::Channel) return std::nullopt;
  return child->id;
}

void CRSS_LeftContainer::ReloadSelection() {
  const QModelIndex selected = tree_->SelectedRow();
  if (!selected.isValid()) return;
  if (auto list = PostsOf(frame_.TheStore(), model_, selected)) {
    frame_.RelistPosts(std::move(*list));
  }
}

void CRSS_LeftContainer::ListSelectedPosts() {
  if (const auto channelId = SelectedChannel()) SetChannelNew(*channelId, false);
  auto list = PostsOf(frame_.TheStore(), model_, tree_->SelectedRow());
  // The list never shows the posts of a row that is not selected any more.
  frame_.ListPosts(ListMode::Selection, std::move(list).value_or(PostList()));
}

void CRSS_LeftContainer::resizeEvent(QResizeEvent* /*event*/) {
  const int top = toolbar_->Height();
  const int left = kTreeFrameInset + 1;
  toolbar_->setGeometry(0, 0, width(), top);
  tree_->setGeometry(left, top + 1, width() - 2 * left, height() - top - left - 1);
}

void CRSS_LeftContainer::paintEvent(QPaintEvent* /*event*/) {
  const int top = toolbar_->Height();
  const QSize bottomSize = bottomBorder_.middle.deviceIndependentSize().toSize();
  const QRect bottom(0, height() - bottomSize.height(), width(), bottomSize.height());
  const QRect left(0, top, leftBorder_.width(), bottom.top() - top);
  const QRect right(width() - rightBorder_.width(), top, rightBorder_.width(), left.height());

  QPainter painter(this);
  painter.fillRect(rect(), kBackground);
  painter.drawTiledPixmap(left, leftBorder_);
  painter.drawTiledPixmap(right, rightBorder_);
  DrawThreePieces(painter, bottom, bottomBorder_);
  painter.setPen(kTreeFrame);
  painter.drawRect(kTreeFrameInset, top, width() - 2 * kTreeFrameInset - 1,
                   height() - top - kTreeFrameInset - 1);
}

}  // namespace feedloom
