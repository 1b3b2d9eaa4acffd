#pragma once

namespace feedloom {

// Gives the calling thread, and the threads that it starts from now on, a lower priority than
// ordinary threads, so that background work yields to the user interface.
void LowerThreadPriority();

}  // namespace feedloom
