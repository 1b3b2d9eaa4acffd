#pragma once

#include <optional>
#include <string>
#include <vector>

namespace feedloom {

struct HostOptions {
  std::string profileDir;                 // as typed; empty: the default directory
  std::optional<std::string> language;    // "KOR" or "ENG", in upper or lower case
  std::optional<std::string> codePage;    // "EUC-KR" or "UTF-8", in upper or lower case
  std::optional<std::string> screenshot;  // the path of the PNG file to write
  bool timings = false;
  bool isHidden = false;              // without a window at first
  std::vector<std::string> contents;  // addresses and files to open, as typed
};

// Parses the program's arguments into `options`. Returns nullopt when the program should start.
// Otherwise the output has been printed, and the exit status is returned: 0 after --help and
// --version, 2 for invalid arguments.
std::optional<int> ReadCommandLine(int argc, const char* const* argv, HostOptions& options);

}  // namespace feedloom
