#pragma once

#include <string>

class QWidget;

namespace feedloom {

// Shows `window`, also one that is hidden or minimized, in front of the others and with the
// keyboard. `activationToken` is the desktop's leave for that, where it gives one. Interface
// thread.
void RaiseWindow(QWidget& window, const std::string& activationToken = {});

}  // namespace feedloom
