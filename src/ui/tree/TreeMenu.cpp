#include "ui/tree/TreeMenu.h"

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
  if (row.isDead || row.hasMoved) menu.push_back({});
  if (row.isDead) menu.push_back({kCommandFindAddress, &kLabelFindAddress});
  if (row.hasMoved) menu.push_back({kCommandUseAddress, &kLabelUseAddress});
  if (row.offersMoves && !HoldsScrapPosts(row.kind)) {
    menu.insert(menu.end(), {{},
                             {kCommandMoveUp, &kLabelMoveUp, row.canMoveUp},
                             {kCommandMoveDown, &kLabelMoveDown, row.canMoveDown}});
  }
  return menu;
}

}  // namespace feedloom
