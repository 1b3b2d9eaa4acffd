// Reads any bytes as the host's ini and registry files. Written values read back the same, and a
// damaged registry is neither read nor replaced.
#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>

#include "files/Registry.h"
#include "files/RegistryFile.h"
#include "fuzz/FuzzKit.h"
#include "profile/IniFile.h"
#include "text/Text.h"

namespace feedloom {
namespace {

// Ini files.

// True when a line can contain the name; these characters would change the line's meaning.
std::string IniName(std::string text) {
  std::erase_if(
      text, [](char c) { return std::string_view("\n=[];").find(c) != std::string_view::npos; });
  return std::string(Trim(text));
}

std::string IniValue(std::string text) {
  std::erase(text, '\n');
  return std::string(Trim(text));
}

void CheckIniFile(FuzzInput input) {
  std::string file = "\xEF\xBB\xBF" + IniName(input.TakeText()) + "\n";
  std::map<std::pair<std::string, std::string>, std::string> values;
  while (!input.IsEmpty()) {
    const std::string section = IniName(input.TakeText()), key = IniName(input.TakeText()),
                      value = IniValue(input.TakeText());
    file += "[ " + section + " ]\r\n;" + key + "=x\n" + key + " = " + value + "\t\r\n";
    values.try_emplace({ToUpperAscii(section), ToUpperAscii(key)}, value);
  }
  const IniFile ini = IniFile::Parse(file);
  for (const auto& [name, value] : values) {
    RequireEqual(ini.Value(name.first, name.second).value_or("(none)"), value,
                 "the first value of a key is read as it was written");
  }
}

void CheckIniBehind(const std::string& text) {
  if (ToUpperAscii(text).find("[OWN") != text.npos) return;
  const IniFile ini = IniFile::Parse(text + "\n[own.KOR]\na=1\n[OWN]\na=2\nb=3");
  const bool isFound = ini.ValueInLanguage("Own", "A", "kor") == "1" &&
                       ini.ValueInLanguage("own", "a", "ENG") == "2" &&
                       ini.ValueInLanguage("own", "B", "KOR") == "3";
  Require(isFound, "no text hides the section behind it");
}

// The registry's file.

using Entries = std::vector<RegistryEntry>;

std::string ReadBytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(file), {});
}

bool IsNamed(const RegistryEntry& entry, const RegistryEntry& other) {
  return EqualsIgnoringAsciiCase(entry.key, other.key) &&
         EqualsIgnoringAsciiCase(entry.name, other.name);
}

Entries Without(Entries entries, const RegistryEntry& named) {
  std::erase_if(entries, [&](const RegistryEntry& entry) { return IsNamed(entry, named); });
  return entries;
}

// True when a heading can contain the key.
std::string RegistryKey(std::string text) {
  std::erase(text, '\n');
  return text.empty() ? "HKEY_LOCAL_MACHINE\\SOFTWARE" : text;
}

// Removes a quoted text from the front of `line`.
bool PassQuoted(std::string_view& line) {
  if (!line.starts_with('"')) return false;
  std::size_t at = 1;
  while (at < line.size() && line[at] != '"') at += line[at] == '\\' ? 2 : 1;
  if (at >= line.size()) return false;
  line.remove_prefix(at + 1);
  return true;
}

// True when the whole line is "name"="text" or "name"=dword:1f.
bool IsEntry(std::string_view line) {
  constexpr std::string_view kNumber = "dword:";
  if (!PassQuoted(line) || !line.starts_with('=')) return false;
  line.remove_prefix(1);
  if (!line.starts_with(kNumber)) return PassQuoted(line) && line.empty();
  line.remove_prefix(kNumber.size());
  if (line.empty() || line.find_first_not_of("0123456789abcdefABCDEF") != line.npos) return false;
  return line.size() - std::min(line.find_first_not_of('0'), line.size()) <= 8;
}

// An independent check of the syntax of RegistryFile.h, line by line.
bool IsOfSyntax(const std::string& text) {
  std::istringstream lines(text);
  bool isInKey = false;
  for (std::string read; std::getline(lines, read);) {
    const std::string_view line = Trim(read);
    const bool isHeading = line.starts_with('[') && line.ends_with(']');
    if (isHeading) isInKey = line.size() > 2;
    if (isHeading || line.empty() || line.starts_with(';') || line == "REGEDIT4") continue;
    if (!isInKey || !IsEntry(line)) return false;
  }
  return true;
}

void CheckText(const std::string& text, const RegistryEntry& entry) {
  const Entries own = {entry, {entry.key + "\\Sub", entry.name, 0xFFFFFFFFu}};
  Require(ParseRegistryFile(FormatRegistryFile(own)) == own, "entries read back the same");
  const auto entries = ParseRegistryFile(text);
  Require(entries.has_value() == IsOfSyntax(text), "a file of another syntax is damaged");
  if (!entries) return;
  Require(ParseRegistryFile(FormatRegistryFile(*entries)) == entries,
          "what was read is written so that it reads the same");
}

void CheckWrite(const std::string& text, const RegistryEntry& entry) {
  const std::string path = ScratchFolder() + "/registry.reg";
  std::ofstream(path, std::ios::binary) << text;
  const Registry registry(path);
  const auto before = ParseRegistryFile(text);
  const auto& value = std::get<std::string>(entry.value);
  Require(registry.IsReadable() == before.has_value(),
          "a file is readable when its syntax is right");
  const bool isWritten = registry.WriteString(entry.key, entry.name, value);
  Require(isWritten == before.has_value(), "only a damaged file refuses a value");
  if (!before) {
    RequireEqual(ReadBytes(path), text, "a damaged file stays as it is");
    Require(!registry.ReadString(entry.key, entry.name), "a damaged file has no values");
    return;
  }
  RequireEqual(registry.ReadString(entry.key, entry.name).value_or("(none)"), value,
               "a value reads back the same");
  Require(!registry.ReadDword(entry.key, entry.name), "a text is no number");
  const auto after = ParseRegistryFile(ReadBytes(path));
  Require(after && Without(*after, entry) == Without(*before, entry), "other values stay");
}

}  // namespace

void CheckInput(FuzzInput input) {
  const std::uint8_t choice = input.TakeByte();
  if (choice == 'I') {
    CheckIniBehind(std::string(input.Rest()));
    CheckIniFile(input);
    return;
  }
  RegistryEntry entry{RegistryKey(input.TakeText()), input.TakeText(), input.TakeText()};
  const std::string text(input.Rest());
  CheckText(text, entry);
  if (choice == 'W') CheckWrite(text, entry);  // only for one choice: it takes far longer
}

}  // namespace feedloom
