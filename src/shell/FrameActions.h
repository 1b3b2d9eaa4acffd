#pragma once

#include "ui/Actions.h"

namespace feedloom {

class CRSS_MainFrame;

// Returns the actions of the panes' commands, which show dialogs over `frame` and change it.
// `frame` must outlive the result. Interface thread only.
Actions MakeFrameActions(CRSS_MainFrame& frame);

}  // namespace feedloom
