#pragma once

#include "ctl/Completion.h"

namespace CLI {
class App;
}

namespace feedloom {

// The options of the program or a command itself, and the program's commands with theirs.
std::vector<CompletedOption> CompletedOptions(const CLI::App& app);
std::vector<CompletedCommand> CompletedCommands(const CLI::App& app);

}  // namespace feedloom
