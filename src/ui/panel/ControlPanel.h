// The control panel as a question.
#pragma once

#include <functional>
#include <optional>

#include "ui/Settings.h"

class QWidget;

namespace feedloom {

class Frame;

// How the panel reads and writes the stored settings.
struct SettingsAccess {
  std::function<Settings()> load;
  std::function<void(const Settings&)> save;
};

// Shows the panel over `parent` and returns when it is closed: the values that the user confirmed,
// already saved; none when the user cancelled or `parent` went meanwhile. In the latter case
// nothing of the frame may be touched any more.
std::optional<Settings> EditSettings(Frame& frame, QWidget* parent, const SettingsAccess& access);

}  // namespace feedloom
