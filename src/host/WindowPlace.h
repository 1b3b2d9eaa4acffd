#pragma once

#include <QRect>

#include "platform/Registry.h"

class QWidget;

namespace feedloom {

// The window's size where no place is remembered.
inline constexpr int kFirstWidth = 1024;
inline constexpr int kFirstHeight = 700;

// The first place of a window on a screen whose free part is `available`: in its middle, and not
// larger than it.
QRect FirstPlace(const QRect& available);

// Puts `window` where `registry` remembers it; into its first place when it does not.
void PlaceWindow(QWidget& window, const Registry& registry);

// False when the registry cannot be written.
[[nodiscard]] bool RememberPlace(const QWidget& window, const Registry& registry);

}  // namespace feedloom
