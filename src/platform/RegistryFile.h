// The text form of the registry: one file in the .reg syntax.
//
//   REGEDIT4
//
//   [HKEY_LOCAL_MACHINE\SOFTWARE\Halvix3.0]
//   "IMAGEDIR"="/usr/share/feedloom/skin"
//   "Debug Mode"=dword:00000001
//
// Inside a quoted text \\ \" \n and \r stand for a backslash, a double quote, a line feed and a
// carriage return. Empty lines and lines that begin with ";" are skipped when a file is read.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace feedloom {

struct RegistryEntry {
  std::string key;   // HKEY_LOCAL_MACHINE\SOFTWARE\Halvix3.0
  std::string name;  // IMAGEDIR
  std::variant<std::uint32_t, std::string> value;

  bool operator==(const RegistryEntry&) const = default;
};

// The entries of a file's text, in its order; none when a line is not of the syntax above. A text
// without content has no entries and is no fault.
std::optional<std::vector<RegistryEntry>> ParseRegistryFile(std::string_view text);

// The text of a file with `entries`, in their order. Those of one key should stand together: each
// run of them gets a heading.
std::string FormatRegistryFile(const std::vector<RegistryEntry>& entries);

}  // namespace feedloom
