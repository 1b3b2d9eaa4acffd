#include "files/RegistryFile.h"

#include <fmt/core.h>

#include <charconv>

#include "text/Text.h"

namespace feedloom {
namespace {

constexpr std::string_view kHeader = "REGEDIT4";
constexpr std::string_view kDwordMark = "dword:";

std::string Quoted(std::string_view text) {
  std::string result = "\"";
  for (const char c : text) {
    switch (c) {
      case '\\':
      case '"':
        result += '\\';
        result += c;
        break;
      case '\n':
        result += "\\n";
        break;
      case '\r':
        result += "\\r";
        break;
      default:
        result += c;
    }
  }
  return result += '"';
}

// Removes a quoted text from the front of `line` and returns it without quotes and escapes; nullopt
// when `line` does not begin with a complete one.
std::optional<std::string> TakeQuoted(std::string_view& line) {
  if (!line.starts_with('"')) return std::nullopt;
  std::string text;
  for (std::size_t i = 1; i < line.size(); ++i) {
    char c = line[i];
    if (c == '"') {
      line.remove_prefix(i + 1);
      return text;
    }
    if (c == '\\') {
      if (++i == line.size()) return std::nullopt;
      c = line[i] == 'n' ? '\n' : line[i] == 'r' ? '\r' : line[i];
    }
    text += c;
  }
  return std::nullopt;
}

std::optional<std::uint32_t> ParseHex(std::string_view digits) {
  std::uint32_t value = 0;
  const char* end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, value, 16);
  if (error != std::errc() || stop != end) return std::nullopt;
  return value;
}

// Parses a line of the form "name"=value.
std::optional<RegistryEntry> ParseEntry(std::string_view line, std::string_view key) {
  auto name = TakeQuoted(line);
  if (!name || !line.starts_with('=')) return std::nullopt;
  line.remove_prefix(1);
  RegistryEntry entry{std::string(key), *std::move(name), {}};
  if (line.starts_with(kDwordMark)) {
    const auto number = ParseHex(line.substr(kDwordMark.size()));
    if (!number) return std::nullopt;
    entry.value = *number;
    return entry;
  }
  auto text = TakeQuoted(line);
  if (!text || !line.empty()) return std::nullopt;
  entry.value = *std::move(text);
  return entry;
}

std::string FormatValue(const RegistryEntry& entry) {
  if (const auto* number = std::get_if<std::uint32_t>(&entry.value)) {
    return fmt::format("{}{:08x}", kDwordMark, *number);
  }
  return Quoted(std::get<std::string>(entry.value));
}

}  // namespace

std::optional<std::vector<RegistryEntry>> ParseRegistryFile(std::string_view text) {
  std::vector<RegistryEntry> entries;
  std::string_view key;
  while (!text.empty()) {
    const auto end = text.find('\n');
    const std::string_view line = Trim(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (line.empty() || line.starts_with(';') || line == kHeader) continue;
    if (line.starts_with('[') && line.ends_with(']')) {
      key = line.substr(1, line.size() - 2);
      continue;
    }
    auto entry = ParseEntry(line, key);
    if (!entry || key.empty()) return std::nullopt;
    entries.push_back(*std::move(entry));
  }
  return entries;
}

std::string FormatRegistryFile(const std::vector<RegistryEntry>& entries) {
  std::string text = fmt::format("{}\n", kHeader);
  std::string_view key;
  for (const RegistryEntry& entry : entries) {
    if (entry.key != key) text += fmt::format("\n[{}]\n", entry.key);
    key = entry.key;
    text += fmt::format("{}={}\n", Quoted(entry.name), FormatValue(entry));
  }
  return text;
}

}  // namespace feedloom
