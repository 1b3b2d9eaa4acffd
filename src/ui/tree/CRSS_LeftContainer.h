// The left pane: the tree of folders, channels and cabinets, its toolbar and menus, and the timers
// that refresh the channels and announce new posts.
#pragma once

#include <QWidget>
#include <optional>
#include <string>
#include <utility>

#include "exchange/Subscriptions.h"
#include "ui/tree/GroupTreeModel.h"
#include "ui/tree/TreeCommands.h"
#include "vxctrl/PaneFrame.h"

class QTimer;

namespace feedloom {

class CRSS_GroupTreeCtrl;
class CRSS_LeftToolBarWnd;

// When the user selects a row, its posts go to Frame::ListPosts, and a channel's new mark goes out.
// An operation that names a channel or cabinet that is not in the tree does nothing.
class CRSS_LeftContainer : public QWidget {
  Q_OBJECT

 public:
  // Without rows until ShowTree. Starts both timers. `frame` outlives the pane; the pane's focus
  // goes to the tree.
  CRSS_LeftContainer(Frame& frame, QWidget* parent);

  // Reads all rows from the store again; nothing is selected then. What the store cannot read (it
  // reports that itself) is left out.
  void LoadTree();
  // The same with rows that are read already; the cabinet root gets its name here.
  void ShowTree(TreeContent content);

  // Queue the channels that are not queued yet, in the order of the rows, and start the refresh:
  // every channel, or those of the selected row.
  void RefreshAll();
  void RefreshSelection();

  // Timer 1 starts anew with the period of State().liveSettings, or stops when they ask for none.
  // It fires once: RefreshAll.
  void RestartUpdateTimer();
  // Timer 2, likewise; it fires again and again: Actions::notifyOfNewPosts.
  void RestartNotificationTimer();

  // Sets a channel's unread count and its folder's along with it. Returns the difference to the
  // count before; 0, and nothing changes, for a negative count.
  int SetChannelUnread(int channelId, int count);
  // The row's new mark; the tree shows it at once. ByMessage: one of the refresh asks for it.
  void SetChannelNew(int channelId, bool isNew);
  void SetChannelNewByMessage(int channelId, bool isNew);
  // The result of the channel's last refresh: below 0 a failure.
  void SetChannelState(int channelId, int state);

  // Reads the counts of all folders and channels again, and the channels' states, or the counts of
  // all cabinets: two statements.
  void RecountUnread(bool ofScrapPosts);

  // 0 for a channel that is not in the tree.
  int ChannelUnread(int channelId) const;

  // A refresh put this channel into the store: appends its row unless it is there. Its unread count
  // is 0 until SetChannelUnread tells it, so that the difference holds all of the channel's posts.
  void AddStoredChannel(int channelId);

  // Rows for what was put into the store, or moved there, by a dialog. A folder that another
  // program has added meanwhile gets its row, too.
  void AppendFolder(FolderRow folder) { model_.AppendFolder(std::move(folder)); }
  void AppendCabinet(CabinetRow cabinet) { model_.AppendCabinet(std::move(cabinet)); }
  void AppendChannel(ChannelRow channel);
  void MoveChannel(int channelId, int folderId);

  // The control panel; nothing without the action.
  void OpenSettings() { commands_.Run(kCommandSettings); }
  // Today's new posts of all channels.
  void ListToday() { commands_.Run(kCommandToday); }

  // The folders with their channels, as the tree shows them, without their counts.
  SubscriptionList Subscriptions() const;

  // While it is busy the pane has no cursor of its own, so that the frame's shows.
  void SetBusy(bool busy);

  // The dialog that adds a channel, for this feed address and the selection's folder; the tree is
  // painted at once after it. Nothing without the action. The pane may be gone when it returns.
  void AddChannel(const std::string& address);
  // One unread saved post more in the cabinet and its group; the tree shows it at once.
  void PostIsSaved(int cabinetId);
  // One unread post less in its channel, or cabinet, and in the group.
  void PostWasRead(const PostRow& post, bool isScrapPost);

  // The bare name; empty when there is no such channel.
  std::string ChannelTitle(int channelId) const;
  // None when no row, or one of another kind, is selected.
  std::optional<int> SelectedChannel() const;
  // Hands the posts of the selected row to Frame::RelistPosts; nothing when no row is selected or
  // the store cannot read them.
  void ReloadSelection();
  // Selects the next row behind the selected one, or the last one before it, that has unread posts,
  // and has its first, or last, unread one shown; nothing when there is none.
  void GoToUnreadRow(bool forward);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void SetUpToolBar();
  void SetUpKeys();
  void ListSelectedPosts();
  void ShowRowMenu(const QPoint& place);
  void ShowMenuAt(const Menu& menu, const QPoint& place);

  Frame& frame_;
  GroupTreeModel model_;
  const PaneFrame border_;
  CRSS_LeftToolBarWnd* const toolbar_;
  CRSS_GroupTreeCtrl* const tree_;
  QTimer* const updateTimer_;
  QTimer* const notificationTimer_;
  TreeCommands commands_;
  FirstShown firstShown_ = FirstShown::First;  // of the next row that is selected
};

}  // namespace feedloom
