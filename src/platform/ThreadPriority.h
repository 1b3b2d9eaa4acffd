#pragma once

namespace feedloom {

// Puts the calling thread, and the threads that it starts from now on, one step below the priority
// of ordinary threads, so that background work yields to the user interface.
void LowerThreadPriority();

}  // namespace feedloom
