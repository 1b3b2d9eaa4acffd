#include "ui/tree/TreeCommands.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <utility>
#include <vector>

#include "skin/Keys.h"
#include "skin/TextPlaceholders.h"
#include "store/Folders.h"
#include "store/PostLists.h"
#include "store/Search.h"
#include "ui/ChannelReport.h"
#include "ui/Desk.h"
#include "ui/Reading.h"
#include "ui/Refreshing.h"
#include "ui/Subscribing.h"
#include "ui/UndoableSteps.h"
#include "ui/dialogs/Dialogs.h"
#include "ui/tree/CRSS_GroupTreeCtrl.h"
#include "ui/tree/GroupTreeModel.h"
#include "ui/tree/SelectedPosts.h"

namespace feedloom {

TreeCommands::TreeCommands(Desk& desk, Refreshing& refreshing, Subscribing& subscribing,
                           Reading& reading, GroupTreeModel& model, CRSS_GroupTreeCtrl& tree,
                           std::function<void()> openSettings)
    : desk_(desk),
      refreshing_(refreshing),
      subscribing_(subscribing),
      reading_(reading),
      model_(model),
      tree_(tree),
      openSettings_(std::move(openSettings)),
      newAddresses_(desk, refreshing, reading, model),
      textSearcher_(desk, reading, tree) {}

void TreeCommands::Run(int command) { Run(command, tree_.SelectedRow()); }

void TreeCommands::Run(int command, const QModelIndex& row) {
  struct Entry {
    int command;
    void (TreeCommands::*run)();
  };
  static constexpr Entry kCommands[] = {
      {kCommandAddChannel, &TreeCommands::AddEmptyChannel},
      {kCommandAddGroup, &TreeCommands::AddGroup},
      {kCommandAddCabinet, &TreeCommands::AddCabinet},
      {kCommandDeleteGroup, &TreeCommands::DeleteGroup},
      {kCommandRenameGroup, &TreeCommands::RenameGroup},
      {kCommandDeleteChild, &TreeCommands::DeleteChild},
      {kCommandRenameChild, &TreeCommands::RenameChild},
      {kCommandMoveChannel, &TreeCommands::MoveChannel},
      {kCommandChannelInfo, &TreeCommands::ShowInfo},
      {kCommandFindAddress, &TreeCommands::FindAddress},
      {kCommandUseAddress, &TreeCommands::UseAddress},
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
      {kCommandImportFile, &TreeCommands::ImportFromFile},
      {kCommandImportAddress, &TreeCommands::ImportFromAddress},
      {kCommandExportOpml, &TreeCommands::ExportOpml},
      {kCommandSynchronise, &TreeCommands::Synchronise},
      {kCommandSettings, &TreeCommands::OpenSettings},
      {kCommandRefreshAll, &TreeCommands::RefreshAll},
      {kCommandRefreshDue, &TreeCommands::RefreshDue},
      {kCommandRefreshSelection, &TreeCommands::RefreshSelection},
      {kCommandDeleteSelection, &TreeCommands::DeleteSelection},
      {kCommandDirectory, &TreeCommands::OpenDirectory},
      {kCommandUndo, &TreeCommands::Undo},
      {kCommandMoveUp, &TreeCommands::MoveBy<-1>},
      {kCommandMoveDown, &TreeCommands::MoveBy<1>},
  };
  const auto* const entry = std::ranges::find(kCommands, command, &Entry::command);
  row_ = row;
  if (entry != std::end(kCommands)) (this->*entry->run)();
}

// Functions about the row that a command acts on.

std::optional<TreeCommands::Target> TreeCommands::TargetAt(const QModelIndex& row) const {
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

ChannelDetails TreeCommands::DetailsOf(const Target& channel) const {
  const ChildRow& row = *model_.ChildAt(channel.row);
  return {row, model_.GroupAt(channel.row.parent())->name, row.state, refreshing_.LastVisit(row),
          refreshing_.Periods()[row.xmlLink]};
}

std::optional<Menu> TreeCommands::MenuOf(const QModelIndex& row) const {
  const auto target = TargetAt(row);
  if (!target) return std::nullopt;
  const bool hasUnread = target->row.data(GroupTreeModel::UnreadRole).toInt() > 0;
  const auto hasPosts = [&] {
    const auto list = PostsOf(desk_.GetStore(), model_.KeyOf(target->row));
    return list && !list->posts.empty();
  };
  const bool isProtected = target->kind == RowKind::Folder && target->order < 0;
  const bool offersAddresses = OffersNewAddresses(desk_.GetSkin());
  const std::size_t folders = model_.Groups().size() - 1;  // one group is the cabinet root
  return RowMenu({.kind = target->kind,
                  .hasPosts = hasUnread || hasPosts(),
                  .isProtected = isProtected,
                  .hasOtherFolder = folders > 1,
                  .offersMoves = tree_.SelectsCarefully(),
                  .canMoveUp = StepOf(target->row, -1).has_value(),
                  .canMoveDown = StepOf(target->row, 1).has_value(),
                  .isDead = offersAddresses && row.data(GroupTreeModel::IsDeadRole).toBool(),
                  .hasMoved = offersAddresses && !NewAddressAt(row).empty()});
}

Menu TreeCommands::WholeMenu() const {
  Menu menu = PopUpMenu(PopUp::Whole);
  menu.push_back({});
  menu.push_back({.command = kCommandUnreadOnly,
                  .label = &kLabelUnreadOnly,
                  .isChecked = desk_.State().isUnreadOnly});
  if (const auto step = desk_.Steps().Name()) {
    menu.push_back({});
    menu.push_back({.command = kCommandUndo, .label = &kLabelUndo, .detail = *step});
  }
  if (desk_.GetSkin().Config().GetModelName().empty()) {
    Disable(menu, kCommandSynchronise, kTextSyncNoModel);
  }
  if (subscribing_.CanExchange()) return menu;
  for (const int command :
       {kCommandImportFile, kCommandImportAddress, kCommandExportOpml, kCommandSynchronise}) {
    Disable(menu, command);
  }
  return menu;
}

// Of a channel; else empty.
std::string TreeCommands::NewAddressAt(const QModelIndex& row) const {
  const ChildRow* const channel = model_.ChildAt(row);
  if (channel == nullptr || channel->kind != RowKind::Channel) return {};
  return NewAddressOf(*channel, refreshing_.LastVisit(*channel));
}

MsgBoxAnswer TreeCommands::Ask(const char* key, MsgBoxKind kind) const {
  return desk_.ShowTextMessage(kSectionTexts, key, kind);
}

// What a command would change of `target` that is hidden now, so that a question tells it; empty
// when there is nothing.
std::string TreeCommands::HiddenIn(const Target& target) const {
  if (!desk_.State().isUnreadOnly) return {};
  const auto list = PostsOf(desk_.GetStore(), RowKey{target.kind, target.id});
  const auto isRead = [](const PostRow& post) { return post.readStatus != 0; };
  const auto posts = list ? std::ranges::count_if(list->posts, isRead) : 0;
  const GroupRow* const folder =
      target.kind == RowKind::Folder ? model_.GroupAt(target.row) : nullptr;
  const auto channels =
      folder ? std::ranges::count(folder->children, 0, &ChildRow::unreadCount) : 0;
  const auto text = [&](const char* key) { return desk_.GetSkin().GetText(kSectionTexts, key); };
  if (channels > 0) {
    return WithNumbers(text(kTextHiddenChannels),
                       {static_cast<int>(channels), static_cast<int>(posts)});
  }
  return posts > 0 ? WithNumbers(text(kTextHiddenPosts), {static_cast<int>(posts)}) : std::string();
}

bool TreeCommands::MayMarkUnread(const Target& target) const {
  const std::string hidden = HiddenIn(target);
  return hidden.empty() ||
         desk_.Ask(kTextMarkUnread, hidden, MsgBoxKind::YesNo) == MsgBoxAnswer::Consented;
}

// The selected folder, or that of the selected channel; 0 without one.
int TreeCommands::SelectedFolderId() const {
  if (const auto channel = Selected(RowKind::Channel)) return DetailsOf(*channel).folderId;
  const auto folder = Selected(RowKind::Folder);
  return folder ? folder->id : 0;
}

void TreeCommands::AddChannel(const std::string& address) {
  row_ = tree_.SelectedRow();
  ShowAdd(address);
}

void TreeCommands::ShowAdd(const std::string& address) {
  ShowChannelAdd(desk_, refreshing_, subscribing_, &tree_, SelectedFolderId(), address);
}

void TreeCommands::AddEmptyChannel() { ShowAdd({}); }

void TreeCommands::ExportOpml() {
  ExportFile(desk_, subscribing_, &tree_,
             FormatLocalTime(desk_.GetStore().GetClock().Now(), "Skyfold_%Y%m%d"));
}

void TreeCommands::AddGroup() { ShowGroupAdd(desk_, subscribing_, &tree_); }

void TreeCommands::AddCabinet() { ShowCabinetAdd(desk_, subscribing_, &tree_); }

void TreeCommands::MoveChannel() {
  const auto channel = Selected(RowKind::Channel);
  if (channel) ShowChannelMove(desk_, subscribing_, &tree_, DetailsOf(*channel));
}

void TreeCommands::ShowInfo() {
  const auto channel = Selected(RowKind::Channel);
  if (!channel) return;
  const ChannelDetails details = DetailsOf(*channel);
  const auto period = ShowChannelInfo(desk_, &tree_, details);
  if (!period) return;  // the object may have been deleted
  if (!refreshing_.SetPeriod(details.xmlLink, *period)) Ask(kTextPeriodError, MsgBoxKind::Notice);
}

void TreeCommands::FindAddress() {
  if (const auto channel = Selected(RowKind::Channel)) newAddresses_.LookFor(channel->id);
}

void TreeCommands::UseAddress() {
  if (const auto channel = Selected(RowKind::Channel)) {
    newAddresses_.Offer(channel->id, NewAddressAt(channel->row));
  }
}

void TreeCommands::ImportFromFile() { ImportFile(desk_, subscribing_, &tree_); }

void TreeCommands::ImportFromAddress() { ImportAddress(desk_, subscribing_, &tree_); }

void TreeCommands::Synchronise() { ShowSync(desk_, subscribing_, &tree_); }

void TreeCommands::OpenSettings() { openSettings_(); }

void TreeCommands::OpenDirectory() { ShowDirectory(desk_, subscribing_, &tree_); }

void TreeCommands::Undo() { desk_.Steps().Undo(); }

// Commands that mark, refresh and list.

template <int status>
void TreeCommands::Mark() {
  const auto target = Selected();
  if (!target || (status == 0 && !MayMarkUnread(*target))) return;
  if (!desk_.Steps().MarkRow({target->kind, target->id}, status)) {
    Ask(kTextReadStatusError, MsgBoxKind::Notice);
    return;
  }
  reading_.RecountUnread(HoldsScrapPosts(target->kind));
  if (target->row != tree_.SelectedRow()) return reading_.ReloadSelection();
  if (auto list = PostsOf(desk_.GetStore(), model_.KeyOf(target->row))) {
    reading_.RelistPosts(std::move(*list));
  }
}

void TreeCommands::Refresh(std::vector<Channel> channels) {
  refreshing_.QueueRefresh(std::move(channels));
  refreshing_.StartRefresh();
}

void TreeCommands::RefreshAll() { Refresh(ChannelsOf(model_.Groups())); }

void TreeCommands::RefreshDue() {
  std::vector<Channel> channels = ChannelsOf(model_.Groups());
  const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
  if (desk_.GetSkin().Config().KeepsPeriods()) {
    OwnPeriods periods = refreshing_.Periods();
    std::erase_if(channels, [&](const Channel& channel) {
      FeedVisit visit = refreshing_.LastVisit(channel);
      if (const auto own = periods[channel.xmlLink]; own.count() > 0) visit.period = own;
      return !IsDue(visit, now);
    });
  }
  Refresh(std::move(channels));
}

void TreeCommands::RefreshSelection() {
  if (const GroupRow* const group = model_.GroupAt(row_)) {
    Refresh(ChannelsOf(*group));
  } else if (Selected(RowKind::Channel)) {
    Refresh({*model_.ChildAt(row_)});
  }
}

void TreeCommands::ListToday() {
  PostList list{.whenEmpty = kTextNoPostsToday};
  if (LoadTodayUnread(desk_.GetStore(), list.posts)) {
    reading_.ListPosts(ListMode::Today, std::move(list));
  }
}

void TreeCommands::ListTodayOfGroup() {
  const auto folder = Selected(RowKind::Folder);
  PostList list{.whenEmpty = kTextNoPostsToday};
  if (folder && LoadFolderTodayUnread(desk_.GetStore(), folder->id, list.posts)) {
    reading_.ListPosts(ListMode::Today, std::move(list));
  }
}

void TreeCommands::Search() {
  const auto target = Selected();
  if (!target) return;
  const auto word = AskSearchWord(desk_, &tree_);
  if (!word) return;
  const RowKey within{target->kind, target->id};
  if (desk_.GetSkin().Config().SearchesTexts()) return textSearcher_.Begin(*word, within);
  PostList list{.areScrapPosts = HoldsScrapPosts(target->kind),
                .areSearchResults = true,
                .whenEmpty = kTextNothingFound,
                .word = *word};
  if (SearchPosts(desk_.GetStore(), within, *word, list.posts)) {
    reading_.ListPosts(ListMode::Selection, std::move(list));
  }
}

}  // namespace feedloom
