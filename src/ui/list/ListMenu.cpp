#include "ui/list/ListMenu.h"

namespace feedloom {
namespace {

void FilterForStoredPosts(Menu& menu, const ListFacts& list) {
  if (list.selected == 1) {
    Remove(menu, list.isRead ? kCommandMarkRead : kCommandMarkUnread);
  } else if (list.selected == 0) {
    for (const int command : {kCommandMarkRead, kCommandMarkUnread, kCommandDelete, kCommandScrap})
      Remove(menu, command);
  }
}

// The posts are not in the store, so they cannot be marked or deleted.
void FilterForWebResults(Menu& menu) {
  for (const int command :
       {kCommandMarkRead, kCommandMarkUnread, kCommandDelete, kCommandDeleteAll})
    Remove(menu, command);
}

}  // namespace

std::optional<Menu> ListMenu(const ListFacts& list) {
  if (list.rows == 0) return std::nullopt;
  Menu menu = PopUpMenu(PopUp::List);
  switch (list.mode) {
    case ListMode::Today:
      Disable(menu, kCommandDeleteAll);
      [[fallthrough]];
    case ListMode::Selection:
      FilterForStoredPosts(menu, list);
      return menu;
    case ListMode::WebDirectory:
      FilterForWebResults(menu);
      return menu;
  }
  return std::nullopt;
}

}  // namespace feedloom
