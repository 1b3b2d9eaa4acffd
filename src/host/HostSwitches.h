// What the view menu turns on and off.
#pragma once

#include <span>

#include "files/Registry.h"

namespace feedloom {

// One choice, which is kept from start to start. Texts are keys of the host's own section.
struct HostSwitch {
  const char* textKey;
  const char* tipKey;  // null: none
  bool (*isOn)(const Registry& registry);
  // Keeps the choice. Returns false when it cannot.
  bool (*turn)(const Registry& registry, bool isOn);
  bool concernsModule;  // which is told that its view has changed
};

// Whether the user wants the program to go on without its window, and notifications of the desktop.
bool KeepsRunning(const Registry& registry);
bool NotifiesDesktop(const Registry& registry);

// In the menu's order.
std::span<const HostSwitch> HostSwitches();

}  // namespace feedloom
