// The state that all panes share. The frame owns the only object. Interface thread only.
#pragma once

#include <string>
#include <vector>

#include "ui/Settings.h"

namespace feedloom {

// A feed that the displayed web page links to; texts are in the module's code page.
struct DiscoveredFeed {
  std::string title;
  std::string address;
  std::string resolved = {};  // the address by the browser engine's rules, which may differ
};

// What the post list shows: posts of the tree's selection, of the web directory, or of today.
enum class ListMode { Selection = 0, WebDirectory = 1, Today = 2 };

struct SharedState {
  // `live` must outlive the object.
  explicit SharedState(Settings& live) : liveSettings(live) {}

  // To be called whenever the list is filled, before it is.
  void SetListed(ListMode mode, bool areSearchResults) {
    ++listings;
    listMode = mode;
    listShowsSelection = mode == ListMode::Selection && !areSearchResults;
  }

  // The number of unread posts: counted at the start (-1 when the store could not be read), then
  // raised by new posts and lowered by reading posts and deleting rows.
  int unreadTotal = 0;
  // The value of unreadTotal at the latest notice of new posts.
  int announcedTotal = 0;
  int listings = 0;      // how often the list was filled
  int textSearches = 0;  // how many searches in texts were begun
  ListMode listMode = ListMode::Selection;
  // True when the list shows the posts of the tree's selected row, not a search or today's posts.
  bool listShowsSelection = false;
  // PostList::marked of the list.
  std::string marked = {};
  // The RSS feeds of the latest web page, and its other feeds, in the page's order. Pages that the
  // Posts that are read, and rows of the tree without unread ones, are hidden.
  bool isUnreadOnly = false;
  // The RSS feeds of the latest web page, and its Atom feeds, in the page's order. Pages that the
  // module generates do not change them.
  std::vector<DiscoveredFeed> discoveredFeeds;
  std::vector<DiscoveredFeed> discoveredOtherFeeds = {};
  // The settings in effect: all zero until the user confirms the control panel. They are the
  // module's, and outlive the frame: a host that makes another frame keeps them.
  Settings& liveSettings;
};

}  // namespace feedloom
