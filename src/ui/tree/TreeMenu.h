// The context menus of the tree's rows. Pure functions.
#pragma once

#include "ui/Menus.h"
#include "ui/tree/TreeRows.h"

namespace feedloom {

struct Actions;

// The properties of a row that its menu depends on.
struct RowFacts {
  RowKind kind = RowKind::Folder;
  bool hasPosts = true;
  bool isProtected = false;    // a folder that must not be deleted or renamed
  bool hasOtherFolder = true;  // there is another folder to which a channel could be moved
};

// The context menu of a row. Commands that the row does not allow are disabled.
Menu RowMenu(const RowFacts& row);

// Disables the commands whose action is not set, in sub-menus too.
void DisableUnavailable(Menu& menu, const Actions& actions);
// False for a command that needs an action which is not set.
bool IsAvailable(int command, const Actions& actions);

}  // namespace feedloom
