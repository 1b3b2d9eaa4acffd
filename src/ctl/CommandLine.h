#pragma once

namespace feedloom {

// Reads the program's arguments, runs the command that they name, and returns the exit status: 0
// after a success, 1 after a failure, 2 for wrong arguments.
int RunCommandLine(int argc, const char* const* argv);

}  // namespace feedloom
