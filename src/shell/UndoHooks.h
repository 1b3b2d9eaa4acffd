#pragma once

#include "ui/UndoableSteps.h"

namespace feedloom {

class Reading;
class StatusLine;

// How the frame takes part in undo: it tells the host of each step, and shows what has come back.
// The arguments must outlive the hooks. Interface thread.
UndoableSteps::Hooks UndoHooks(StatusLine& status, Reading& reading);

}  // namespace feedloom
