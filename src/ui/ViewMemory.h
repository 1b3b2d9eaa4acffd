// What the window remembers of itself, as plain values. A value that is 0 or empty, or of something
// that is gone, stands for nothing remembered.
#pragma once

#include <QPointF>
#include <QUrl>
#include <optional>
#include <string>
#include <vector>

#include "store/RowKey.h"
#include "ui/PostList.h"
#include "ui/SharedState.h"

namespace feedloom {

struct TreeMemory {
  std::vector<RowKey> closed = {};  // groups whose rows are hidden
  std::optional<RowKey> selected = {};

  bool operator==(const TreeMemory&) const = default;
};

struct ListMemory {
  std::vector<int> columnWidths = {};  // pixels
  int scope = -1;                      // a SearchScope; negative for none
  // Of the list's posts:
  int sortColumn = -1;  // negative: the store's order
  bool isDescending = false;
  int current = 0;  // the id of the current post
  int top = 0;      // of the post on the first line

  bool operator==(const ListMemory&) const = default;
};

struct PageMemory {
  int zoomSteps = 0;  // from the normal size
  int post = 0;       // the id of the post that was shown last

  bool operator==(const PageMemory&) const = default;
};

// Sizes in pixels.
struct PaneMemory {
  int leftWidth = 0;   // of the tree's pane
  int listHeight = 0;  // of the list's pane above the page
  int listWidth = 0;   // of the list's pane beside the page

  bool operator==(const PaneMemory&) const = default;
};

// What is remembered from one start of the program to the next. shell/ViewStore.h stores it.
struct ViewMemory {
  PaneMemory panes = {};
  TreeMemory tree = {};
  ListMemory list = {};
  PageMemory page = {};
  bool isUnreadOnly = false;  // tree and list show only what is unread

  bool operator==(const ViewMemory&) const = default;
};

// What the browser shows: a post; otherwise a web page; otherwise the main page, or an empty one.
struct PageContent {
  bool IsMainPage() const { return !post && address.isEmpty(); }

  std::optional<PostRow> post = {};
  QUrl address = {};
  QPointF scrolled = {};  // how far, in the page's pixels
};

// What the module keeps besides, while a host replaces the frame.
struct KeptView {
  ViewMemory view;
  ListMode listMode = ListMode::Selection;
  std::optional<PostList> found = {};  // the list, unless it shows the tree's selection
  PageContent page = {};
};

}  // namespace feedloom
