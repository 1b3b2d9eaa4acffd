// The host's ini files: UTF-8, lines of "[SECTION]" and "KEY=value".
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace feedloom {

// A value; any thread may read it. Section and key names compare without regard to ASCII case.
class IniFile {
 public:
  // Reads `text`. A value is what follows the first "=", as it stands, without the white space at
  // its two ends. Lines that begin with ";" and lines of no known form are skipped; of a key that
  // stands twice in a section the first one counts.
  static IniFile Parse(std::string_view text);

  // The file at `path`; one that cannot be read has no values.
  static IniFile Read(const std::string& path);

  std::optional<std::string> Value(std::string_view section, std::string_view key) const;

  // The value in the section "SECTION.LANGUAGE"; when it has none, that in the section itself.
  std::optional<std::string> ValueInLanguage(std::string_view section, std::string_view key,
                                             std::string_view language) const;

 private:
  std::map<std::pair<std::string, std::string>, std::string> values_;  // by section and key
};

}  // namespace feedloom
