#pragma once

#include "ui/Actions.h"

namespace feedloom {

class CRSS_MainFrame;

// What the commands of the frame's panes do; those that are left out are grey. `frame` outlives
// them.
Actions MakeFrameActions(CRSS_MainFrame& frame);

}  // namespace feedloom
