// Validation of the control panel's values.
#pragma once

#include "ui/Settings.h"

namespace feedloom {

// Returns the text key of an error message, null when `settings` are valid: automatic deletion
// needs an age of at least one day. Pure.
const char* ValidatePanelSettings(const Settings& settings);

}  // namespace feedloom
