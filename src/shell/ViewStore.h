// The window's memory in the registry, under a key of its own: each value is a text of decimal
// numbers with "," between them. Any thread may call these functions.
#pragma once

#include "files/Registry.h"
#include "ui/ViewMemory.h"

namespace feedloom {

// A value that is missing, out of range or in another form is not remembered; the others are.
ViewMemory LoadView(const Registry& registry);
// Stores all values or, when it returns false, none.
[[nodiscard]] bool SaveView(const Registry& registry, const ViewMemory& view);

}  // namespace feedloom
