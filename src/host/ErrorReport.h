#pragma once

#include <string>
#include <vector>

namespace feedloom {

// Writes "halvix: ", `text` (UTF-8) and a line break to stderr. A failed write is ignored.
void ReportError(const std::string& text);

// Whether the program runs on a desktop: DISPLAY or WAYLAND_DISPLAY is set, and QT_QPA_PLATFORM
// names no platform without a screen.
bool HasDisplay();

// Shows `text` (UTF-8) in a modal message box and returns when the user has closed it. Creates an
// application object for that time if there is none, which has the look and the language of the
// profile with the registry file `registry`, where that can be read. `choices` are the texts of the
// buttons; Enter presses the last one. Returns the index of the one that was pressed, -1 for none.
// Interface thread.
int ShowErrorBox(const std::string& text, const std::string& registry,
                 const std::vector<std::string>& choices = {});

}  // namespace feedloom
