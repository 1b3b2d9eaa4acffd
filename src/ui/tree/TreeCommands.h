// The commands of the tree's menus, toolbar and keys.
#pragma once

#include <QPersistentModelIndex>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "controls/CMsgBox.h"
#include "refresh/RefreshQueue.h"
#include "ui/ChannelDetails.h"
#include "ui/TextSearcher.h"
#include "ui/tree/NewAddresses.h"
#include "ui/tree/TreeMenu.h"
#include "ui/tree/TreeMoves.h"

namespace feedloom {

class CRSS_GroupTreeCtrl;
class Desk;
class DraggedPosts;
class GroupTreeModel;
class Reading;
class Refreshing;
class Subscribing;

// A command acts on the selected row, or on the one that it is given. It does nothing when the row
// is of another kind. The object may have been deleted when a command that opens a dialog returns.
// Interface thread only.
class TreeCommands {
 public:
  // All that is passed by reference must outlive the object. `tree` shows `model`, and the dialogs
  // stand over it. `openSettings` shows the control panel.
  TreeCommands(Desk& desk, Refreshing& refreshing, Subscribing& subscribing, Reading& reading,
               GroupTreeModel& model, CRSS_GroupTreeCtrl& tree, std::function<void()> openSettings);

  // Runs the command with this number of ui/Commands.h, on `row` if one is given. What it changes
  // shows in the list only as far as the list shows that row.
  void Run(int command);
  void Run(int command, const QModelIndex& row);

  // Runs kCommandAddChannel with a feed address, in the module's code page, as the dialog's preset.
  void AddChannel(const std::string& address);

  // Moves a channel or folder to `place`: in the store first, and then in the tree. A failure, and
  // a folder that has the channel's address already, are told in the status text; the row stays.
  void MoveTo(const RowKey& moved, const RowPlace& place);

  // Copies the posts into the cabinet, and says so in the status text.
  void Save(const DraggedPosts& posts, int cabinetId);

  // The context menu of `row`; nullopt when it is invalid. Reads the row's posts from the store
  // when the unread count does not show whether there are any.
  std::optional<Menu> MenuOf(const QModelIndex& row) const;
  // The menu of the toolbar's menu button.
  Menu WholeMenu() const;

 private:
  // The row that a command acts on. `row` stays valid while the user is asked a question.
  struct Target {
    QPersistentModelIndex row;
    RowKind kind = RowKind::Folder;
    int id = 0;
    int order = 0;
    std::string name;
  };

  std::optional<Target> TargetAt(const QModelIndex& row) const;
  // The row that was chosen for the command which runs: to be read before the user is asked.
  std::optional<Target> Selected() const { return TargetAt(row_); }
  std::optional<Target> Selected(RowKind kind) const;
  std::optional<Target> SelectedChild() const;
  ChannelDetails DetailsOf(const Target& channel) const;
  MsgBoxAnswer Ask(const char* key, MsgBoxKind kind) const;
  std::string NewAddressAt(const QModelIndex& row) const;
  std::string HiddenIn(const Target& target) const;
  bool MayMarkUnread(const Target& target) const;

  int SelectedFolderId() const;
  bool IsFolderQueued(const Target& folder) const;
  void Delete(const Target& target);
  void RemoveRow(const QPersistentModelIndex& row);
  void RemoveListedRow(const QPersistentModelIndex& row);
  void ShowAdd(const std::string& address);
  void Refresh(std::vector<Channel> channels);
  bool StorePlace(const RowKey& moved, const RowPlace& place);
  bool IsAddressIn(int channelId, int folderId) const;

  // Each runs one command.
  void AddEmptyChannel();
  void ExportOpml();
  void AddGroup();
  void AddCabinet();
  void MoveChannel();
  void ShowInfo();
  void FindAddress();
  void UseAddress();
  void ImportFromFile();
  void ImportFromAddress();
  void Synchronise();
  void OpenSettings();
  void OpenDirectory();
  void Undo();
  void DeleteSelection();
  void DeleteChild();
  void DeleteGroup();
  void RenameGroup();
  void RenameChild();
  // The place one step below the row, or above it for -1; none where there is no further one.
  std::optional<RowPlace> StepOf(const QModelIndex& row, int step) const;
  template <int step>
  void MoveBy();
  template <int status>
  void Mark();
  void RefreshAll();
  // Refreshes all channels; for a host that KeepsPeriods those that are due (IsDue).
  void RefreshDue();
  void RefreshSelection();
  void ListToday();
  void ListTodayOfGroup();
  void Search();

  Desk& desk_;
  Refreshing& refreshing_;
  Subscribing& subscribing_;
  Reading& reading_;
  GroupTreeModel& model_;
  CRSS_GroupTreeCtrl& tree_;
  const std::function<void()> openSettings_;
  NewAddresses newAddresses_;
  TextSearcher textSearcher_;
  QPersistentModelIndex row_;  // of the command that runs
};

}  // namespace feedloom
