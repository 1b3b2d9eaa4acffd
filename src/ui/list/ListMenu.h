// The context menu of the list. Pure function.
#pragma once

#include <optional>

#include "ui/Menus.h"
#include "ui/SharedState.h"

namespace feedloom {

// The properties of the list that its menu depends on.
struct ListFacts {
  ListMode mode = ListMode::Selection;
  int rows = 0;
  int selected = 0;
  bool isRead = false;  // the only selected post is read
};

// Returns nullopt for a list without rows.
std::optional<Menu> ListMenu(const ListFacts& list);

}  // namespace feedloom
