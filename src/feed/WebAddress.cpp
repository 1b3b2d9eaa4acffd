#include "feed/WebAddress.h"

#include <fmt/core.h>

#include "net/RequestAddress.h"
#include "text/Text.h"

namespace feedloom {
namespace {

constexpr std::string_view kSchemeMark = "://";

bool IsFeedScheme(std::string_view address) {
  return WithoutFeedScheme(address).size() < address.size();
}

}  // namespace

std::string CompleteFeedAddress(const std::string& typedUtf8, const std::string& scheme) {
  const std::string_view typed = Trim(typedUtf8);
  if (typed.empty()) return "";
  const bool isComplete = typed.find(kSchemeMark) != typed.npos || IsFeedScheme(typed);
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
  const std::string_view inner = WithoutFeedScheme(address);
  const std::string_view scheme = inner.substr(0, inner.find(kSchemeMark));
  if (scheme.size() == inner.size()) return IsFeedScheme(address);
  return EqualsIgnoringAsciiCase(scheme, "http") || EqualsIgnoringAsciiCase(scheme, "https");
}

}  // namespace feedloom
