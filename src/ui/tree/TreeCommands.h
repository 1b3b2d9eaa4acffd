// The commands of the tree's menus, toolbar and keys.
#pragma once

#include <QPersistentModelIndex>
#include <optional>
#include <string>
#include <vector>

#include "ui/Frame.h"
#include "ui/tree/TreeMenu.h"

namespace feedloom {

class CRSS_GroupTreeCtrl;
class GroupTreeModel;

// A command acts on the selected row. It does nothing when the row is of another kind, or when the
// command's action is not set. The object may have been deleted when a command that opens a dialog
// returns. Interface thread only.
class TreeCommands {
 public:
  // `frame`, `model` and `tree` must outlive the object. `tree` shows `model`.
  TreeCommands(Frame& frame, GroupTreeModel& model, CRSS_GroupTreeCtrl& tree)
      : frame_(frame), model_(model), tree_(tree) {}

  // Runs the command with this number of ui/Commands.h.
  void Run(int command);

  // Runs kCommandAddChannel with a feed address, in the module's code page, as the dialog's preset.
  void AddChannel(const std::string& address);

  // The context menu of the selected row; nullopt when no row is selected. Reads the row's posts
  // from the store when the unread count does not show whether there are any.
  std::optional<Menu> SelectionMenu() const;
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

  std::optional<Target> Selected() const;
  std::optional<Target> Selected(RowKind kind) const;
  std::optional<Target> SelectedChild() const;
  ChannelFacts FactsOf(const Target& channel) const;
  MsgBoxAnswer Ask(const char* key, MsgBoxKind kind) const;

  std::string SelectedFolderName() const;
  bool IsFolderQueued(const Target& folder) const;
  void RemoveRow(const QPersistentModelIndex& row);
  bool MarkPosts(const Target& target, int status);
  void Refresh(std::vector<RefreshEntry> entries);

  // Each runs one command.
  void AddEmptyChannel(const Actions& actions);
  void ExportOpml(const Actions& actions);
  template <auto action>
  void RunAction(const Actions& actions);
  template <auto action>
  void RunChannelAction(const Actions& actions);
  void DeleteSelection(const Actions& actions);
  void DeleteChild(const Actions& actions);
  void DeleteGroup(const Actions& actions);
  void RenameGroup(const Actions& actions);
  void RenameChild(const Actions& actions);
  template <int status>
  void Mark(const Actions& actions);
  void RefreshAll(const Actions& actions);
  void RefreshSelection(const Actions& actions);
  void ListToday(const Actions& actions);
  void ListTodayOfGroup(const Actions& actions);
  void Search(const Actions& actions);

  Frame& frame_;
  GroupTreeModel& model_;
  CRSS_GroupTreeCtrl& tree_;
};

}  // namespace feedloom
