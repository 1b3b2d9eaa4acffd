#pragma once

#include <functional>
#include <string>
#include <vector>

class QRect;
class QWidget;

namespace feedloom {

class CodePage;
struct DiscoveredFeed;

// Shows a menu with the feeds' titles below `place`, a rectangle of the screen, and returns at
// once. `onChosen` gets the chosen one's address later, on the interface thread, unless `parent` is
// gone by then; `onClosed` comes in any case when the menu has closed. With `canAdd` false nothing
// can be chosen. Nothing happens without feeds.
void ShowFeedMenu(const std::vector<DiscoveredFeed>& feeds, CodePage codePage, bool canAdd,
                  const QRect& place, QWidget* parent,
                  std::function<void(const std::string& address)> onChosen,
                  std::function<void()> onClosed);

}  // namespace feedloom
