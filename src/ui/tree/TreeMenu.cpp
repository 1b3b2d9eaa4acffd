#include "ui/tree/TreeMenu.h"

#include <algorithm>

#include "ui/Actions.h"

namespace feedloom {
namespace {

PopUp PopUpOf(RowKind kind) {
  switch (kind) {
    case RowKind::Folder:
      return PopUp::Group;
    case RowKind::CabinetRoot:
      return PopUp::CabinetRoot;
    case RowKind::Channel:
      return PopUp::Channel;
    case RowKind::Cabinet:
      break;
  }
  return PopUp::Cabinet;
}

template <auto action>
bool Has(const Actions& actions) {
  return actions.*action != nullptr;
}

struct Requirement {
  int command;
  bool (*isAvailable)(const Actions&);
};

// The actions that commands need. A command may need several.
constexpr Requirement kRequirements[] = {
    {kCommandAddChannel, Has<&Actions::addChannel>},
    {kCommandAddGroup, Has<&Actions::addGroup>},
    {kCommandAddCabinet, Has<&Actions::addCabinet>},
    {kCommandRenameGroup, Has<&Actions::askGroupName>},
    {kCommandRenameChild, Has<&Actions::askChannelName>},
    {kCommandRenameChild, Has<&Actions::askCabinetName>},
    {kCommandMoveChannel, Has<&Actions::moveChannel>},
    {kCommandChannelInfo, Has<&Actions::showChannelInfo>},
    {kCommandSearchGroup, Has<&Actions::askSearchWord>},
    {kCommandSearchChannel, Has<&Actions::askSearchWord>},
    {kCommandSearchAllCabinets, Has<&Actions::askSearchWord>},
    {kCommandSearchCabinet, Has<&Actions::askSearchWord>},
    {kCommandImportFile, Has<&Actions::importFile>},
    {kCommandImportAddress, Has<&Actions::importAddress>},
    {kCommandExportOpml, Has<&Actions::exportOpml>},
    {kCommandSynchronise, Has<&Actions::synchronise>},
    {kCommandSettings, Has<&Actions::openSettings>},
    {kCommandDirectory, Has<&Actions::openDirectory>},
};

}  // namespace

Menu RowMenu(const RowFacts& row) {
  Menu menu = PopUpMenu(PopUpOf(row.kind));
  if (!row.hasPosts) {
    Disable(menu, kCommandMarkAllRead);
    Disable(menu, kCommandMarkAllUnread);
  }
  if (row.isProtected) {
    Disable(menu, kCommandDeleteGroup);
    Disable(menu, kCommandRenameGroup);
  }
  if (!row.hasOtherFolder) Disable(menu, kCommandMoveChannel);
  return menu;
}

bool IsAvailable(int command, const Actions& actions) {
  return std::ranges::all_of(kRequirements, [&](const Requirement& requirement) {
    return requirement.command != command || requirement.isAvailable(actions);
  });
}

void DisableUnavailable(Menu& menu, const Actions& actions) {
  for (MenuItem& item : menu) {
    if (!IsAvailable(item.command, actions)) item.isEnabled = false;
    DisableUnavailable(item.items, actions);
  }
}

}  // namespace feedloom
