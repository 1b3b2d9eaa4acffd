#pragma once

namespace feedloom {

// The program: reads its arguments, opens the profile, shows the module in a window until the user
// closes it, and returns the exit status: 0, 1 when something failed, 2 for arguments that make no
// sense.
int RunHost(int argc, char** argv);

}  // namespace feedloom
