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

// A command acts on the selected row, and does nothing when that is of another kind or when its
// action is not there. The object may be gone when a command that opens a dialog returns.
class TreeCommands {
 public:
  // All three outlive the object.
  TreeCommands(Frame& frame, GroupTreeModel& model, CRSS_GroupTreeCtrl& tree)
      : frame_(frame), model_(model), tree_(tree) {}

  // Commands.h has the numbers.
  void Run(int command);

  // kCommandAddChannel with a feed address to begin with.
  void AddChannel(const std::string& address);

  // The menu of the selected row; none when no row is selected. Reads the row's posts from the
  // store when nothing else tells whether there are any.
  std::optional<Menu> SelectionMenu() const;
  Menu WholeMenu() const;

 private:
  // The row that a command is about, found again by itself after a question.
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

  // One a command.
  void AddEmptyChannel(const Actions& actions);
  void ExportOpml(const Actions& actions);
  template <auto action>
  void RunAlone(const Actions& actions);
  template <auto action>
  void RunOnChannel(const Actions& actions);
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
