#pragma once

#include <QRect>

#include "files/Registry.h"

class QWidget;

namespace feedloom {

// The window's initial size, in device-independent pixels.
inline constexpr int kInitialWidth = 1024;
inline constexpr int kInitialHeight = 700;

// The initial geometry on a screen whose usable area is `available`: centred, and not larger than
// the area.
QRect InitialGeometry(const QRect& available);

// Gives `window` the geometry saved in `registry`, or its initial one when none can be restored.
void RestoreWindowGeometry(QWidget& window, const Registry& registry);

// Saves the geometry of `window`. False when the registry cannot be written.
[[nodiscard]] bool SaveWindowGeometry(const QWidget& window, const Registry& registry);

}  // namespace feedloom
