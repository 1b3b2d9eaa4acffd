// The module's menus as values, and a function that shows one.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "skin/Labels.h"
#include "ui/Commands.h"

class QMenu;
class QPoint;
class QWidget;

namespace feedloom {

class Skin;

struct MenuItem;
using Menu = std::vector<MenuItem>;

// A command; with `items`, a sub-menu; without `label`, a separator. `detail`, a text in the
// module's code page, stands behind the label in brackets; `tip` is the key of its tip's text.
struct MenuItem {
  int command = 0;
  const Label* label = nullptr;
  bool isEnabled = true;
  Menu items = {};
  std::string detail = {};
  std::optional<bool> isChecked = {};  // of a command that turns something on and off
  const char* tip = nullptr;
};

// The module's pop-up menus.
enum class PopUp { Group, Channel, CabinetRoot, Cabinet, Whole, List };

// Returns the menu with every item enabled.
Menu PopUpMenu(PopUp popUp);

// Disables every item with this command, also in sub-menus. `reason` is the key of a text that says
// why, or null.
void Disable(Menu& menu, int command, const char* reason = nullptr);
// Removes every item with this command from the top level.
void Remove(Menu& menu, int command);

// Shows the menu at `place`, in screen coordinates, and returns it at once; it is deleted when it
// closes. Interface thread only.
// `onCommand` is called with the chosen command from the event loop, unless `parent` is destroyed
// before. Each QAction of the menu has its command as data().
QMenu& ShowMenu(const Menu& menu, const Skin& skin, const QPoint& place, QWidget* parent,
                std::function<void(int command)> onCommand);

}  // namespace feedloom
