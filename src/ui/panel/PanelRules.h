// Which values of the control panel are sound.
#pragma once

#include "ui/Settings.h"

namespace feedloom {

// The key of the text that says what is wrong with `settings`, null when nothing is: automatic
// deletion needs an age to delete at.
const char* ValidatePanelSettings(const Settings& settings);

}  // namespace feedloom
