#pragma once

#include "profile/Profile.h"

class QWidget;

namespace feedloom {

// Shows the versions of the program and of what it is made with, the licence, and where the profile
// lies, which the user can open. Returns when the user closes the box. Interface thread.
void ShowAbout(QWidget& window, const ProfilePaths& paths);

}  // namespace feedloom
