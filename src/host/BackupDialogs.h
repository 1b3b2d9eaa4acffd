// What the window asks when the user wants to back up the profile, or to restore it. Interface
// thread.
#pragma once

#include <functional>

#include "profile/Profile.h"

namespace feedloom {

class HostWindow;

// Asks for a file, and whether logins come along if there are any, and writes the backup. The
// status bar says that it is done, a message box that it failed.
void BackUp(HostWindow& window, const ProfilePaths& paths);

// Asks for a backup and whether it shall take the profile's place, checks it, and calls `restart`,
// which is to end the window and call CompleteRestore.
void Restore(HostWindow& window, const ProfilePaths& paths, const std::function<void()>& restart);

}  // namespace feedloom
