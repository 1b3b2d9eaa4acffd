// Shows the control panel.
#pragma once

#include <functional>
#include <optional>

#include "ui/Settings.h"

class QWidget;

namespace feedloom {

class Desk;

// Functions that load and save the stored settings. `save` returns false when nothing was stored.
struct SettingsAccess {
  std::function<Settings()> load;
  std::function<bool(const Settings&)> save;
};

// Shows the panel over `parent` and returns when it is closed. Returns the settings that the user
// has confirmed, already saved; std::nullopt when the user cancelled or `parent` was destroyed
// meanwhile. In the latter case the caller must not use the frame any more. Interface thread only.
std::optional<Settings> EditSettings(Desk& desk, QWidget* parent, const SettingsAccess& access);

}  // namespace feedloom
