#include "feed/WebAddress.h"

#include <fmt/core.h>

#include "text/Text.h"

namespace feedloom {
namespace {

constexpr std::string_view kSchemeMark = "://";

}  // namespace

std::string CompleteFeedAddress(const std::string& typedUtf8, const std::string& scheme) {
  const std::string_view typed = Trim(typedUtf8);
  if (typed.empty()) return "";
  const bool isComplete = typed.find(kSchemeMark) != std::string_view::npos;
  return (isComplete ? "" : scheme + std::string(kSchemeMark)) + EscapedAddress(typed);
}

std::string EscapedAddress(std::string_view utf8) {
  std::string address;
  for (const char c : utf8) {
    if (c > ' ' && c <= '~') {
      address += c;
    } else {
      address += fmt::format("%{:02X}", static_cast<unsigned char>(c));
    }
  }
  return address;
}

bool IsWebAddress(std::string_view address) {
  const std::string_view scheme = address.substr(0, address.find(kSchemeMark));
  return scheme.size() < address.size() &&
         (EqualsIgnoringAsciiCase(scheme, "http") || EqualsIgnoringAsciiCase(scheme, "https"));
}

}  // namespace feedloom
