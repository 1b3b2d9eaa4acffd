// Which menu a row of the tree has. Pure.
#pragma once

#include "ui/Menus.h"
#include "ui/tree/TreeRows.h"

namespace feedloom {

struct Actions;

// What the menu depends on.
struct RowFacts {
  RowKind kind = RowKind::Folder;
  bool hasPosts = true;
  bool isProtected = false;    // of a folder
  bool hasOtherFolder = true;  // of a channel: there is a folder to move it to
};

Menu RowMenu(const RowFacts& row);

// Greys the commands whose action is not there.
void DisableMissing(Menu& menu, const Actions& actions);
// False for a command whose action is not there.
bool IsThere(int command, const Actions& actions);

}  // namespace feedloom
