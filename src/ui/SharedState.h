// What the panes share: the module-wide state. The frame owns the one object; it belongs to the
// interface thread.
#pragma once

#include <string>
#include <vector>

#include "ui/Settings.h"

namespace feedloom {

// A feed that the web page on display announces; in the module's code page.
struct DiscoveredFeed {
  std::string title;
  std::string address;
};

// What the list shows.
enum class ListMode { Selection = 0, WebDirectory = 1, Today = 2 };

struct SharedState {
  // Posts not read yet: counted at start (-1 when the store could not be read), raised by what a
  // refresh brings, lowered by clicks on posts and by rows that are deleted.
  int unreadTotal = 0;
  // The unread total when new posts were last announced.
  int announcedTotal = 0;
  ListMode listMode = ListMode::Selection;
  // The list shows the posts of the tree's selected row: not a search, nor today's posts.
  bool listShowsSelection = false;
  // In the page's order. A page that the module writes leaves them as they are.
  std::vector<DiscoveredFeed> discoveredFeeds;
  // All zero until the user confirms the control panel, whatever is stored.
  Settings liveSettings;
};

}  // namespace feedloom
