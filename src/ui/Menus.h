// The module's menus as plain values, and how one is shown.
#pragma once

#include <functional>
#include <vector>

#include "skin/Labels.h"
#include "ui/Commands.h"

class QPoint;
class QWidget;

namespace feedloom {

class Skin;

struct MenuItem;
using Menu = std::vector<MenuItem>;

// A command, a sub-menu when it has items, a separator when it has no label.
struct MenuItem {
  int command = 0;
  const Label* label = nullptr;
  bool isEnabled = true;
  Menu items = {};
};

// The pop-ups of the module's menu, in its order.
enum class PopUp { Group, Channel, CabinetRoot, Cabinet, Whole, List };

// Every item enabled.
Menu PopUpMenu(PopUp popUp);

// Greys the command wherever it stands; in sub-menus too.
void Disable(Menu& menu, int command);
// Takes the command out of the top level.
void Remove(Menu& menu, int command);

// Shows the menu at `place`, a point of the screen, and returns at once. `onCommand` gets the
// chosen command later, on the interface thread, unless `parent` is gone by then. The menu's
// actions carry their commands as data.
void ShowMenu(const Menu& menu, const Skin& skin, const QPoint& place, QWidget* parent,
              std::function<void(int command)> onCommand);

}  // namespace feedloom
