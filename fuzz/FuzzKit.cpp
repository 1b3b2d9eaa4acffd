#include "fuzz/FuzzKit.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace feedloom {
namespace {

constexpr char kSeparator = '\x1F';

// Escapes bytes that are not printable like a C string.
void Show(std::string_view name, std::string_view text) {
  std::fprintf(stderr, "  %.*s: \"", static_cast<int>(name.size()), name.data());
  for (const char c : text) {
    const bool isPlain = c >= ' ' && c <= '~' && c != '"' && c != '\\';
    isPlain ? std::fprintf(stderr, "%c", c)
            : std::fprintf(stderr, "\\x%02X", static_cast<unsigned char>(c));
  }
  std::fprintf(stderr, "\"\n");
}

}  // namespace

FuzzInput::FuzzInput(std::span<const std::uint8_t> bytes)
    : rest_(reinterpret_cast<const char*>(bytes.data()), bytes.size()) {}

std::uint8_t FuzzInput::TakeByte() {
  if (rest_.empty()) return 0;
  const auto byte = static_cast<std::uint8_t>(rest_.front());
  rest_.remove_prefix(1);
  return byte;
}

CodePage FuzzInput::TakeCodePage() {
  return TakeByte() == 'U' ? CodePage::Utf8() : CodePage::Korean();
}

std::string FuzzInput::TakeText() {
  const std::string_view text = rest_.substr(0, rest_.find(kSeparator));
  rest_.remove_prefix(std::min(text.size() + 1, rest_.size()));
  return std::string(text);
}

void Require(bool holds, std::string_view property) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %.*s\n", static_cast<int>(property.size()), property.data());
  std::abort();
}

void RequireEqual(std::string_view actual, std::string_view expected, std::string_view property) {
  if (actual == expected) return;
  Show("actual", actual);
  Show("expected", expected);
  Require(false, property);
}

void RequireValid(std::string_view text, CodePage codePage, std::string_view property) {
  RequireEqual(codePage.FromUtf8(codePage.ToUtf8(text)), text, property);
}

const std::string& ScratchFolder() {
  static const std::string folder = [] {
    std::string path = std::filesystem::temp_directory_path() / "feedloom-fuzz-XXXXXX";
    Require(mkdtemp(path.data()) != nullptr, "the fuzzer can make a folder");
    return path;
  }();
  return folder;
}

}  // namespace feedloom

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  feedloom::CheckInput(feedloom::FuzzInput({bytes, size}));
  return 0;
}
