// The entry that starts the program with the user's session (freedesktop.org's Desktop Application
// Autostart Specification).
#pragma once

#include <string>

namespace feedloom {

// Whether the entry is there.
bool StartsWithSession();

// Writes the entry, which starts this program without a window on the profile in `profileDir`, or
// removes it. Returns false when it cannot.
bool SetStartsWithSession(const std::string& profileDir, bool isOn);

// The entry's text. `profileDir` is empty for the default profile. Paths are the file system's.
std::string AutostartEntry(const std::string& program, const std::string& profileDir);

}  // namespace feedloom
