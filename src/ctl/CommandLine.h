#pragma once

namespace feedloom {

// Reads the program's arguments, runs the command that they name and returns the exit status: 0 on
// success only, 1 when the command failed, 2 for arguments that make no sense.
int RunCommandLine(int argc, const char* const* argv);

}  // namespace feedloom
