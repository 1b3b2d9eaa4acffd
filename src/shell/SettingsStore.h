// The user's settings in the registry. Each setting is stored twice: as a number under its name,
// for other programs, and as decimal text under its name with "Str" appended. Only the text is read
// back. Any thread may call these functions.
#pragma once

#include "files/Registry.h"
#include "ui/Settings.h"

namespace feedloom {

// Returns `settings` with 1 for every mode that is not 0.
Settings WithModesAsFlags(Settings settings);

// A value that is missing or not a number is read as 0; LoadFrameSettings returns modes as 0 or 1.
// SavePanelSettings stores all values or, when it returns false, none.
Settings LoadFrameSettings(const Registry& registry);
Settings LoadPanelSettings(const Registry& registry);
[[nodiscard]] bool SavePanelSettings(const Registry& registry, const Settings& settings);

}  // namespace feedloom
