#pragma once

#include <functional>

class QWidget;

namespace feedloom {

// Calls `run` once, from the event loop, after `window` was painted for the first time. A window
// that stays unpainted, because it is minimized for example, gets the call after half a second.
// When the window is destroyed first, `run` is never called. Interface thread.
void OnFirstPaint(QWidget& window, std::function<void()> run);

}  // namespace feedloom
