#pragma once

#include <QPalette>

namespace feedloom {

// Whether the user prefers dark windows. The answer is the "color-scheme" of the desktop's settings
// portal (org.freedesktop.portal.Settings, over the session bus). Without a preference there,
// `desktop` decides: it is dark when its window colour is darker than its text colour. Waits at
// most half a second for the portal, and never starts a session bus. Interface thread.
bool PrefersDark(const QPalette& desktop);

}  // namespace feedloom
