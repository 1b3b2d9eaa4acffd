#pragma once

namespace feedloom {

// Runs the program: parses its arguments, opens the profile and shows the module in a window until
// the user closes it. Returns the exit status: 0 on success, 1 when something failed, 2 for invalid
// arguments. Called once, on the main thread.
int RunHost(int argc, char** argv);

}  // namespace feedloom
