#pragma once

#include <optional>
#include <string>

namespace feedloom {

struct HostOptions {
  std::string profileDir;                 // empty: the default one
  std::optional<std::string> language;    // "KOR", "ENG", in any case
  std::optional<std::string> codePage;    // "EUC-KR", "UTF-8", in any case
  std::optional<std::string> screenshot;  // the picture's file
  bool timings = false;
};

// Reads the program's arguments into `options`. None when the program is to start; else its exit
// status, with all said already: 0 after --help and --version, 2 for arguments that make no sense.
std::optional<int> ReadCommandLine(int argc, const char* const* argv, HostOptions& options);

}  // namespace feedloom
