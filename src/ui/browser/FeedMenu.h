#pragma once

#include <functional>
#include <string>
#include <vector>

class QRect;
class QWidget;

namespace feedloom {

class CodePage;
struct DiscoveredFeed;

// Shows a menu with the feeds' titles below `place`, a rectangle in screen coordinates, and returns
// at once; does nothing without feeds. When the user chooses a feed, `onChosen` is called with its
// address after the menu has closed. `onClosed` is called whenever the menu closes. Neither is
// called when `parent` has been deleted. All items are disabled unless `canAdd`. Interface thread;
// texts are in `codePage`.
void ShowFeedMenu(const std::vector<DiscoveredFeed>& feeds, CodePage codePage, bool canAdd,
                  const QRect& place, QWidget* parent,
                  std::function<void(const std::string& address)> onChosen,
                  std::function<void()> onClosed);

}  // namespace feedloom
