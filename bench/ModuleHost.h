// The module as a benchmark hosts it: with a profile's texts and images, in a widget.
#pragma once

#include <string>

#include "kit/TestProfile.h"

class QWidget;

namespace feedloom {

// Loads the built module through a link in the profile, and answers it with the profile's texts and
// images from now on. Null, and the reason on stderr, when it cannot be loaded. To be called before
// the application object is made.
void* LoadModule(const TestProfile& profile);

// Makes the module's frame in a layout of `host`.
QWidget* ShowModule(void* module, QWidget& host);
void DestroyModule(void* module);

// Selects the tree's first channel, as the keyboard does.
void SelectFirstChannel(QWidget* frame);

}  // namespace feedloom
