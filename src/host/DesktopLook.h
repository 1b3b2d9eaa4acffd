#pragma once

#include <QPalette>

namespace feedloom {

// Whether the user likes dark windows: what the desktop's settings portal says to "color-scheme"
// over the session bus, else the lightness of the desktop's own palette. Waits at most half a
// second for the portal, and starts no bus where there is none. Interface thread.
bool PrefersDark(const QPalette& desktop);

}  // namespace feedloom
