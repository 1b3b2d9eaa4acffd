#include "ui/tree/TreeCommands.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

#include "skin/Keys.h"
#include "store/Cabinets.h"
#include "store/Channels.h"
#include "store/Folders.h"
#include "store/ReadStatus.h"
#include "store/Search.h"
#include "store/SqlText.h"
#include "ui/tree/CRSS_GroupTreeCtrl.h"
#include "ui/tree/GroupTreeModel.h"
#include "ui/tree/RefreshEntries.h"
#include "ui/tree/SelectedPosts.h"

namespace feedloom {

void TreeCommands::Run(int command) {
  struct Entry {
    int command;
    void (TreeCommands::*run)(const Actions&);
  };
  static constexpr Entry kCommands[] = {
      {kCommandAddChannel, &TreeCommands::AddEmptyChannel},
      {kCommandAddGroup, &TreeCommands::RunAction<&Actions::addGroup>},
      {kCommandAddCabinet, &TreeCommands::RunAction<&Actions::addCabinet>},
      {kCommandDeleteGroup, &TreeCommands::DeleteGroup},
      {kCommandRenameGroup, &TreeCommands::RenameGroup},
      {kCommandDeleteChild, &TreeCommands::DeleteChild},
      {kCommandRenameChild, &TreeCommands::RenameChild},
      {kCommandMoveChannel, &TreeCommands::RunChannelAction<&Actions::moveChannel>},
      {kCommandChannelInfo, &TreeCommands::RunChannelAction<&Actions::showChannelInfo>},
      {kCommandMarkAllRead, &TreeCommands::Mark<1>},
      {kCommandMarkAllUnread, &TreeCommands::Mark<0>},
      {kCommandRefreshGroup, &TreeCommands::RefreshSelection},
      {kCommandRefreshChannel, &TreeCommands::RefreshSelection},
      {kCommandToday, &TreeCommands::ListToday},
      {kCommandTodayInGroup, &TreeCommands::ListTodayOfGroup},
      {kCommandSearchGroup, &TreeCommands::Search},
      {kCommandSearchChannel, &TreeCommands::Search},
      {kCommandSearchAllCabinets, &TreeCommands::Search},
      {kCommandSearchCabinet, &TreeCommands::Search},
      {kCommandImportFile, &TreeCommands::RunAction<&Actions::importFile>},
      {kCommandImportAddress, &TreeCommands::RunAction<&Actions::importAddress>},
      {kCommandExportOpml, &TreeCommands::ExportOpml},
      {kCommandSynchronise, &TreeCommands::RunAction<&Actions::synchronise>},
      {kCommandSettings, &TreeCommands::RunAction<&Actions::openSettings>},
      {kCommandRefreshAll, &TreeCommands::RefreshAll},
      {kCommandRefreshSelection, &TreeCommands::RefreshSelection},
      {kCommandDeleteSelection, &TreeCommands::DeleteSelection},
      {kCommandDirectory, &TreeCommands::RunAction<&Actions::openDirectory>},
  };
  const Actions actions = frame_.GetActions();  // a copy: the frame may be deleted while one runs
  const auto* const entry = std::ranges::find(kCommands, command, &Entry::command);
  if (entry != std::end(kCommands) && IsAvailable(command, actions)) (this->*entry->run)(actions);
}

// Functions about the selected row.

std::optional<TreeCommands::Target> TreeCommands::Selected() const {
  const QModelIndex row = tree_.SelectedRow();
  if (const GroupRow* const group = model_.GroupAt(row)) {
    return Target{row, group->kind, group->id, group->order, group->name};
  }
  if (const ChildRow* const child = model_.ChildAt(row)) {
    return Target{row, child->kind, child->id, child->order, child->title};
  }
  return std::nullopt;
}

std::optional<TreeCommands::Target> TreeCommands::Selected(RowKind kind) const {
  auto target = Selected();
  if (target && target->kind != kind) target.reset();
  return target;
}

std::optional<TreeCommands::Target> TreeCommands::SelectedChild() const {
  auto target = Selected();
  if (target && IsGroup(target->kind)) target.reset();
  return target;
}

ChannelFacts TreeCommands::FactsOf(const Target& channel) const {
  const GroupRow& folder = *model_.GroupAt(channel.row.parent());
  return {channel.id, channel.name, model_.ChildAt(channel.row)->xmlLink, folder.id, folder.name};
}

std::optional<Menu> TreeCommands::SelectionMenu() const {
  const auto target = Selected();
  if (!target) return std::nullopt;
  const bool hasUnread = target->row.data(GroupTreeModel::UnreadRole).toInt() > 0;
  const auto hasPosts = [&] {
    const auto list = PostsOf(frame_.GetStore(), model_.KeyOf(target->row));
    return list && !list->posts.empty();
  };
  const bool isProtected = target->kind == RowKind::Folder && target->order < 0;
  const std::size_t folders = model_.Groups().size() - 1;  // one group is the cabinet root
  Menu menu = RowMenu({.kind = target->kind,
                       .hasPosts = hasUnread || hasPosts(),
                       .isProtected = isProtected,
                       .hasOtherFolder = folders > 1});
  DisableUnavailable(menu, frame_.GetActions());
  return menu;
}

Menu TreeCommands::WholeMenu() const {
  Menu menu = PopUpMenu(PopUp::Whole);
  DisableUnavailable(menu, frame_.GetActions());
  return menu;
}

MsgBoxAnswer TreeCommands::Ask(const char* key, MsgBoxKind kind) const {
  return frame_.ShowTextMessage(kSectionTexts, key, kind);
}

// The name of the selected folder, or of the folder of the selected channel; empty without one.
std::string TreeCommands::SelectedFolderName() const {
  if (const auto channel = Selected(RowKind::Channel)) return FactsOf(*channel).folderName;
  const auto folder = Selected(RowKind::Folder);
  return folder ? folder->name : std::string();
}

void TreeCommands::AddChannel(const std::string& address) {
  const auto addChannel = frame_.GetActions().addChannel;
  if (addChannel) addChannel(SelectedFolderName(), address);
}

void TreeCommands::AddEmptyChannel(const Actions& /*actions*/) { AddChannel({}); }

void TreeCommands::ExportOpml(const Actions& actions) {
  actions.exportOpml(FormatLocalTime(frame_.GetStore().GetClock().Now(), "Skyfold_%Y%m%d"));
}

template <auto action>
void TreeCommands::RunAction(const Actions& actions) {
  (actions.*action)();
}

template <auto action>
void TreeCommands::RunChannelAction(const Actions& actions) {
  if (const auto channel = Selected(RowKind::Channel)) (actions.*action)(FactsOf(*channel));
}

// Commands that delete and rename.

void TreeCommands::DeleteSelection(const Actions& actions) {
  const auto target = Selected();
  if (!target || target->kind == RowKind::CabinetRoot) return;
  IsGroup(target->kind) ? DeleteGroup(actions) : DeleteChild(actions);
}

void TreeCommands::DeleteChild(const Actions& /*actions*/) {
  const auto child = SelectedChild();
  if (!child) {
    Ask(kTextDeleteChildError, MsgBoxKind::Notice);
    return;
  }
  const bool isChannel = child->kind == RowKind::Channel;
  const char* const question = isChannel ? kTextDeleteChannel : kTextDeleteCabinet;
  if (Ask(question, MsgBoxKind::YesNo) != MsgBoxAnswer::Consented) return;
  if (isChannel && frame_.IsAnyChannelQueued({&child->id, 1})) {
    Ask(kTextDeleteBusyError, MsgBoxKind::Notice);
    return;
  }
  isChannel ? DeleteChannel(frame_.GetStore(), child->id)
            : DeleteCabinet(frame_.GetStore(), child->id);
  RemoveRow(child->row);
}

// DeleteGroup asks this before and after its question, as a timer may start a refresh meanwhile.
bool TreeCommands::IsFolderQueued(const Target& folder) const {
  const GroupRow* const group = model_.GroupAt(folder.row);
  if (group == nullptr) return false;
  std::vector<int> channelIds;
  for (const ChildRow& channel : group->children) channelIds.push_back(channel.id);
  return frame_.IsAnyChannelQueued(channelIds);
}

void TreeCommands::DeleteGroup(const Actions& /*actions*/) {
  const auto folder = Selected(RowKind::Folder);
  if (!folder || folder->order < 0) {
    Ask(folder ? kTextDeleteProtectedError : kTextDeleteGroupError, MsgBoxKind::Notice);
    return;
  }
  const bool mayDelete = !IsFolderQueued(*folder);
  if (mayDelete && Ask(kTextDeleteGroup, MsgBoxKind::YesNo) != MsgBoxAnswer::Consented) return;
  if (!mayDelete || IsFolderQueued(*folder)) {
    Ask(kTextDeleteBusyError, MsgBoxKind::Notice);
    return;
  }
  DeleteFolder(frame_.GetStore(), folder->id);
  RemoveRow(folder->row);
}

void TreeCommands::RemoveRow(const QPersistentModelIndex& row) {
  frame_.ListPosts(ListMode::Selection, {});
  tree_.ClearSelection();
  frame_.State().unreadTotal -= model_.Remove(row);
}

void TreeCommands::RenameGroup(const Actions& actions) {
  const auto folder = Selected(RowKind::Folder);
  if (!folder || folder->order < 0) return;
  const auto name = actions.askGroupName(folder->name);
  if (!name) return;
  if (RenameFolder(frame_.GetStore(), folder->id, *name)) {
    model_.Rename(folder->row, UnescapeEntities(*name));  // the form in which it is stored
  } else {
    Ask(kTextRenameGroupError, MsgBoxKind::Notice);
  }
}

void TreeCommands::RenameChild(const Actions& actions) {
  const auto child = SelectedChild();
  if (!child) return;
  const bool isChannel = child->kind == RowKind::Channel;
  const auto name =
      isChannel ? actions.askChannelName(FactsOf(*child)) : actions.askCabinetName(child->name);
  if (!name) return;
  const auto rename = isChannel ? RenameChannel : RenameCabinet;
  if (rename(frame_.GetStore(), child->id, *name)) {
    model_.Rename(child->row, UnescapeEntities(*name));
  } else {
    Ask(kTextRenameChildError, MsgBoxKind::Notice);
  }
}

// Commands that mark, refresh and list.

bool TreeCommands::MarkPosts(const Target& target, int status) {
  Store& store = frame_.GetStore();
  switch (target.kind) {
    case RowKind::Folder:
      return MarkFoldersRead(store, status, {&target.id, 1});
    case RowKind::Channel:
      return MarkChannelsRead(store, status, {&target.id, 1});
    case RowKind::CabinetRoot:
      return MarkAllScrapPostsRead(store, status);
    case RowKind::Cabinet:
      return MarkCabinetsRead(store, status, {&target.id, 1});
  }
  return false;
}

template <int status>
void TreeCommands::Mark(const Actions& /*actions*/) {
  const auto target = Selected();
  if (!target) return;
  if (!MarkPosts(*target, status)) {
    Ask(kTextReadStatusError, MsgBoxKind::Notice);
    return;
  }
  frame_.RecountUnread(target->kind == RowKind::CabinetRoot || target->kind == RowKind::Cabinet);
  if (auto list = PostsOf(frame_.GetStore(), model_.KeyOf(target->row))) {
    frame_.RelistPosts(std::move(*list));
  }
}

void TreeCommands::Refresh(std::vector<RefreshEntry> entries) {
  frame_.QueueRefresh(std::move(entries));
  frame_.StartRefresh();
}

void TreeCommands::RefreshAll(const Actions& /*actions*/) {
  Refresh(RefreshEntriesOf(model_.Groups()));
}

void TreeCommands::RefreshSelection(const Actions& /*actions*/) {
  const QModelIndex row = tree_.SelectedRow();
  if (const GroupRow* const group = model_.GroupAt(row)) {
    Refresh(RefreshEntriesOf(*group));
  } else if (const auto channel = Selected(RowKind::Channel)) {
    Refresh({RefreshEntryOf(*model_.ChildAt(row), model_.GroupAt(row.parent())->id)});
  }
}

void TreeCommands::ListToday(const Actions& /*actions*/) {
  PostList list;
  if (LoadTodayUnread(frame_.GetStore(), list.posts)) {
    frame_.ListPosts(ListMode::Today, std::move(list));
  }
}

void TreeCommands::ListTodayOfGroup(const Actions& /*actions*/) {
  const auto folder = Selected(RowKind::Folder);
  PostList list;
  if (folder && LoadFolderTodayUnread(frame_.GetStore(), folder->id, list.posts)) {
    frame_.ListPosts(ListMode::Today, std::move(list));
  }
}

void TreeCommands::Search(const Actions& actions) {
  const auto target = Selected();
  if (!target) return;
  const auto word = actions.askSearchWord();
  if (!word) return;
  Store& store = frame_.GetStore();
  PostList list;
  list.wereSearched = true;
  const auto found = [&] {
    switch (target->kind) {
      case RowKind::Folder:
        return SearchFolderPosts(store, target->id, *word, list.posts);
      case RowKind::Channel:
        return SearchChannelPosts(store, target->id, *word, list.posts);
      case RowKind::CabinetRoot:
        return SearchScrapPosts(store, *word, list.posts);
      case RowKind::Cabinet:
        return SearchCabinetPosts(store, target->id, *word, list.posts);
    }
    return false;
  };
  list.areScrapPosts = target->kind == RowKind::CabinetRoot || target->kind == RowKind::Cabinet;
  if (found()) frame_.ListPosts(ListMode::Selection, std::move(list));
}

}  // namespace feedloom
