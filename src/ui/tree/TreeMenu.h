// The context menus of the tree's rows. Pure functions.
#pragma once

#include "ui/Menus.h"
#include "ui/tree/TreeRows.h"

namespace feedloom {

// The properties of a row that its menu depends on.
struct RowFacts {
  RowKind kind = RowKind::Folder;
  bool hasPosts = true;
  bool isProtected = false;    // a folder that must not be deleted or renamed
  bool hasOtherFolder = true;  // there is another folder to which a channel could be moved
  bool offersMoves = false;    // the menu of a folder or channel has the commands for these:
  bool canMoveUp = true;
  bool canMoveDown = true;
  bool isDead = false;    // a channel for which a new address can be looked for
  bool hasMoved = false;  // a channel whose feed has a new address
};

// The context menu of a row. Commands that the row does not allow are disabled.
Menu RowMenu(const RowFacts& row);

}  // namespace feedloom
