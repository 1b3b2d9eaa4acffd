// Which menu the list has. Pure.
#pragma once

#include <optional>

#include "ui/Menus.h"
#include "ui/SharedState.h"

namespace feedloom {

// What the menu depends on.
struct ListFacts {
  ListMode mode = ListMode::Selection;
  int rows = 0;
  int selected = 0;
  bool isRead = false;    // the post of the row, when a single one is selected
  bool canScrap = false;  // there is something to choose a cabinet with
};

// None for a list without rows.
std::optional<Menu> ListMenu(const ListFacts& list);

}  // namespace feedloom
