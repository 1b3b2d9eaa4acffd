#pragma once

#include <functional>

class QWidget;

namespace feedloom {

// Calls `run` once, from the event loop, when `window` is painted for the first time and the
// painting is on its way to the screen. A window that nobody sees, minimized say, is not painted:
// for that one `run` is called after half a second. Not at all when the window is gone by then.
void OnFirstPaint(QWidget& window, std::function<void()> run);

}  // namespace feedloom
