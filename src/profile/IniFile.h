// The host's ini files: UTF-8, with lines "[SECTION]" and "KEY=value".
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace feedloom {

// A parsed ini file, immutable: any thread may read it. Section and key names are compared without
// regard to ASCII case.
class IniFile {
 public:
  // Parses `text`. A value is everything after the line's first "=", without white space at its
  // ends; quotes and ";" belong to it. Lines that begin with ";" and unknown lines are skipped.
  // When a section has a key twice, the first value is used. A byte order mark is skipped.
  static IniFile Parse(std::string_view text);

  // Parses the file at `path`. A file that cannot be read has no values.
  static IniFile Read(const std::string& path);

  // The value in UTF-8; nullopt when the section has no such key.
  std::optional<std::string> Value(std::string_view section, std::string_view key) const;

  // The value in the section "SECTION.LANGUAGE", or else in "SECTION".
  std::optional<std::string> ValueInLanguage(std::string_view section, std::string_view key,
                                             std::string_view language) const;

 private:
  std::map<std::pair<std::string, std::string>, std::string> values_;  // by section and key
};

}  // namespace feedloom
