// The text form of the registry: one file in the .reg syntax.
//
//   REGEDIT4
//
//   [HKEY_LOCAL_MACHINE\SOFTWARE\Halvix3.0]
//   "IMAGEDIR"="/usr/share/feedloom/skin"
//   "Debug Mode"=dword:00000001
//
// Inside quotes, \\ \" \n and \r stand for a backslash, a double quote, a line feed and a carriage
// return. A reader skips empty lines and lines that begin with ";". Any thread may call these
// functions.
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

// The entries of a registry file with the content `text`, in the order of its lines; nullopt when a
// line is not in the syntax above. An empty text has no entries.
std::optional<std::vector<RegistryEntry>> ParseRegistryFile(std::string_view text);

// The content of a registry file with `entries`, in their order. Entries of one key should be
// adjacent: a heading is written wherever the key changes.
std::string FormatRegistryFile(const std::vector<RegistryEntry>& entries);

}  // namespace feedloom
