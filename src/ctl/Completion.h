// What a shell completes behind the program's name.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace feedloom {

struct CompletedOption {
  std::string name;  // "--folder"
  std::string help;
  bool takesValue = false;
  std::vector<std::string> values = {};  // the only ones; empty: any
};

struct CompletedCommand {
  std::string name;
  std::string help;
  std::vector<CompletedOption> options = {};
  std::vector<std::string> words = {};  // the first argument, when it is one of a few
};

// The names of the shells that the next function knows.
inline constexpr std::string_view kShells[] = {"bash", "zsh", "fish"};

// The script with which `shell` completes `program` with these commands, and with options that
// stand before or behind any of them. Where neither fits, files are completed.
std::string CompletionScript(std::string_view shell, const std::string& program,
                             const std::vector<CompletedCommand>& commands,
                             const std::vector<CompletedOption>& everywhere);

}  // namespace feedloom
