#pragma once

#include "ui/Actions.h"

namespace feedloom {

class CRSS_MainFrame;

// The actions of the panes' commands, which show dialogs over `frame` and change it. `frame` must
// outlive them. Interface thread only.

// Returns all but those of SetExchangeActions.
Actions MakeFrameActions(CRSS_MainFrame& frame);
// Sets those that import, export and synchronise subscriptions, which need the tree's rows.
void SetExchangeActions(CRSS_MainFrame& frame, Actions& actions);

}  // namespace feedloom
