#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "ui/SharedState.h"

class QRect;
class QWidget;

namespace feedloom {

class CodePage;

// The groups of the menu, from top to bottom.
using FeedGroups = std::array<std::vector<DiscoveredFeed>, 2>;

// Shows a menu with the feeds' titles below `place`, a rectangle in screen coordinates, and returns
// at once; does nothing without feeds. A line stands between the groups. When the user chooses a
// feed, `onChosen` is called with its address after the menu has closed. `onClosed` is called
// whenever the menu closes. Neither is called when `parent` has been deleted. Interface thread;
// texts are in `codePage`.
void ShowFeedMenu(const FeedGroups& groups, CodePage codePage, const QRect& place, QWidget* parent,
                  std::function<void(const std::string& address)> onChosen,
                  std::function<void()> onClosed);

}  // namespace feedloom
