// The user's settings in the registry. Each is stored twice, as a number under its name and as that
// number's decimal text under its name and "Str"; only the text is ever read back, the number is
// for other programs. Any thread.
#pragma once

#include "platform/Registry.h"
#include "ui/Settings.h"

namespace feedloom {

// The modes as 0 or 1, as the running module has them.
Settings WithModesAsFlags(Settings settings);

// A value that is missing or no number is 0. Three readers and writers, three orders: programs that
// watch the registry see the values in the order that each of them always had.
Settings LoadFrameSettings(const Registry& registry);
Settings LoadPanelSettings(const Registry& registry);
void SavePanelSettings(const Registry& registry, const Settings& settings);

}  // namespace feedloom
