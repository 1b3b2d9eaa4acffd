// The left pane: the tree of folders, channels and cabinets, its toolbar and menus, and the timers
// that refresh the channels and announce new posts.
#pragma once

#include <QWidget>
#include <optional>
#include <span>
#include <string>
#include <utility>

#include "exchange/Subscriptions.h"
#include "look/PaneFrame.h"
#include "ui/Reading.h"
#include "ui/ViewMemory.h"
#include "ui/tree/GroupTreeModel.h"
#include "ui/tree/TreeCommands.h"

class QTimer;

namespace feedloom {

class CRSS_GroupTreeCtrl;
class CRSS_LeftToolBarWnd;

// When the user selects a row, the pane passes its posts to Reading::ListPosts and clears a
// channel's new mark; with keys, when these rest. A host that wants it careful has the first post
// marked read only when the user turns to it (FirstPost::Glimpse). A function does nothing when its
// channel or cabinet id is not in the tree. Texts are in the module's code page. Interface thread
// only.
class CRSS_LeftContainer : public QWidget {
  Q_OBJECT

 public:
  // The pane has no rows until ShowTree. The constructor starts both timers. What
  // it takes but `parent` must outlive the pane. The tree is the pane's focus proxy.
  CRSS_LeftContainer(Desk& desk, Refreshing& refreshing, Subscribing& subscribing, Reading& reading,
                     QWidget* parent);
  ~CRSS_LeftContainer() override;

  // Replaces all rows by `content`, except that the cabinet root is named by the skin. Afterwards
  // no row is selected.
  void ShowTree(TreeContent content);

  // Brings the rows up to date with a newer reading of the store. Closed folders, the selection and
  // the scroll position stay. A selected row that is gone is deselected, and the list emptied when
  // it shows that row's posts.
  void UpdateTree(const TreeContent& content);

  // Runs the command with this number of ui/Commands.h for the selected row, or the whole tree. A
  // refresh queues channels in the order of their rows; one that is queued already is skipped.
  void Run(int command);
  // Lists the row to which keys have come, without waiting for their rest.
  void Settle();

  // Shows all rows, or only those with unread posts and those that are always there.
  void ShowUnreadOnly(bool isOn);

  // Restarts the update timer with the period in State().liveSettings, or stops it when the
  // settings turn it off, or the host updates. The timer fires once, for kCommandRefreshDue.
  void RestartUpdateTimer();
  // Restarts or stops the notification timer in the same way. The timer fires periodically and
  // emits NoticeIsDue.
  void RestartNotificationTimer();

  // Sets a channel's unread count, and changes its folder's count by the difference. Returns the
  // difference to the previous count. A negative `count` changes nothing and returns 0.
  int SetChannelUnread(int channelId, int count);
  // These set the new mark of a channel, or of several, and repaint the tree before they return.
  // The ByMessage variant is for messages of the refresh; see NewPostAnimation.
  void SetChannelsNew(std::span<const int> channelIds, bool isNew);
  void SetChannelNewByMessage(int channelId, bool isNew);
  // `state` is the ChannelResult of the channel's last refresh: negative after a failure.
  void SetChannelState(int channelId, int state);

  // Shows these icons in place of the skin's, but for channels whose last refresh has failed.
  void ShowIcons(ChannelIcons icons) { model_.SetIcons(std::move(icons)); }

  // Reads counts from the store again, by two SQL statements. True: those of all cabinets. False:
  // those of all folders and channels, and the channels' states.
  void RecountUnread(bool ofScrapPosts);

  // A channel's unread count; 0 for a channel that is not in the tree.
  int ChannelUnread(int channelId) const;
  // The sum of the channels' unread counts.
  int UnreadInChannels() const { return model_.UnreadInChannels(); }

  // A number that rises when rows or counts change, or posts of rows by the user: what was read
  // from the store before that is out of date.
  int Revision() const { return revision_; }

  // Appends the row of a channel that a refresh has stored, unless the row exists. Its unread count
  // is 0 until SetChannelUnread, whose returned difference then counts all of the channel's posts.
  void AddStoredChannel(int channelId);

  // Add or move the row of something that a dialog has stored or moved. If the channel's folder has
  // no row because another program has added it, the folder gets its row first.
  void AppendFolder(FolderRow folder) { model_.AppendFolder(std::move(folder)); }
  void AppendCabinet(CabinetRow cabinet) { model_.AppendCabinet(std::move(cabinet)); }
  void AppendChannel(ChannelRow channel);
  void MoveChannel(int channelId, int folderId);

  // As Reading::ShowUndone.
  void ShowUndone(const std::optional<UndoableRow>& row);

  // Lists today's unread posts of all channels.
  void ListToday() { commands_.Run(kCommandToday); }

  // The folders with their channels in the order of the rows.
  SubscriptionList Subscriptions() const;

  // While the pane is busy it sets no cursor, so that the frame's wait cursor shows.
  void SetBusy(bool busy);

  // Opens the dialog that adds a channel, with this feed address and the selected folder, and then
  // repaints the tree. The pane may have been deleted when the call returns.
  void AddChannel(const std::string& address);
  // Adds one to the unread counts of the cabinet and of the cabinet root, and repaints the tree
  // before it returns.
  void UnreadPostWasSaved(int cabinetId);
  // Subtracts one from the unread counts of the post's channel or cabinet and of its group.
  void PostWasRead(const PostRow& post, bool isScrapPost);

  // A channel's title without its count; empty when there is no such channel.
  std::string ChannelTitle(int channelId) const;
  // What is to be remembered of the rows on display.
  TreeMemory Memory() const;
  // Closes these groups. Rows that are gone are ignored.
  void Close(const std::vector<RowKey>& groups);
  // Select a row without listing its posts: this one, or the first folder with unread posts. False,
  // and nothing is selected, when there is no such row.
  bool Select(const RowKey& row);
  bool SelectUnreadFolder();
  // The selected row; nullopt when no row is selected.
  std::optional<RowKey> SelectedRow() const;
  // True when the channel, or its folder, is selected.
  bool SelectionHolds(int channelId) const;
  // Passes the posts of the selected row to Reading::RelistPosts. Does nothing when no row is
  // selected or the store cannot read the posts.
  void ReloadSelection();
  // Forward: selects the next row with unread posts after the selected one and shows its first
  // unread post. Otherwise: selects the previous such row and shows its last unread post. Says
  // so in a status text when there is no such row.
  void GoToUnreadRow(bool forward);

 signals:
  void SettingsWanted();
  void UnreadOnlyWanted(bool isOn);
  void NoticeIsDue();
  void Changed();       // Revision() has risen
  void SearchWanted();  // the keyboard is to go to the search box

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void SetUpToolBar();
  void CountChanges();
  void ListSelectedPosts(FirstPost shown);
  bool SelectQuietly(const QModelIndex& row);
  void ShowRowMenu(const QModelIndex& row, const QPoint& place);

  Desk& desk_;
  Reading& reading_;
  GroupTreeModel model_;
  const PaneFrame border_;
  CRSS_LeftToolBarWnd* const toolbar_;
  CRSS_GroupTreeCtrl* const tree_;
  QTimer* const updateTimer_;
  QTimer* const notificationTimer_;
  TreeCommands commands_;
  int revision_ = 0;
};

}  // namespace feedloom
