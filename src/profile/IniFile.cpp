#include "profile/IniFile.h"

#include "profile/Files.h"
#include "text/Text.h"

namespace feedloom {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string_view TakeLine(std::string_view& text) {
  const auto end = text.find('\n');
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  return Trim(line);
}

}  // namespace

IniFile IniFile::Parse(std::string_view text) {
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  IniFile file;
  std::string section;
  while (!text.empty()) {
    const std::string_view line = TakeLine(text);
    if (line.starts_with(';')) continue;
    if (line.starts_with('[') && line.ends_with(']')) {
      section = ToUpperAscii(Trim(line.substr(1, line.size() - 2)));
      continue;
    }
    const auto equals = line.find('=');
    if (equals == std::string_view::npos) continue;
    file.values_.try_emplace({section, ToUpperAscii(Trim(line.substr(0, equals)))},
                             Trim(line.substr(equals + 1)));
  }
  return file;
}

IniFile IniFile::Read(const std::string& path) { return Parse(ReadFile(path).value_or("")); }

std::optional<std::string> IniFile::Value(std::string_view section, std::string_view key) const {
  const auto found = values_.find({ToUpperAscii(section), ToUpperAscii(key)});
  if (found == values_.end()) return std::nullopt;
  return found->second;
}

std::optional<std::string> IniFile::ValueInLanguage(std::string_view section, std::string_view key,
                                                    std::string_view language) const {
  auto value = Value(std::string(section).append(".").append(language), key);
  return value ? value : Value(section, key);
}

}  // namespace feedloom
