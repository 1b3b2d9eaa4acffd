#include "net/RequestAddress.h"

#include <fmt/core.h>
#include <idn2.h>

#include <algorithm>

#include "net/UrlHandle.h"
#include "text/Text.h"

namespace feedloom {
namespace {

constexpr std::string_view kHttp = "http:";
constexpr std::string_view kFile = "file:";
constexpr std::string_view kFeed = "feed:";
constexpr std::string_view kSchemeMark = "://";

bool BeginsWith(std::string_view text, std::string_view scheme) {
  return EqualsIgnoringAsciiCase(text.substr(0, scheme.size()), scheme);
}

constexpr bool IsLetterOrDigit(char c) {
  return IsDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsHexDigit(char c) { return IsDigit(c) || ((c | 0x20) >= 'a' && (c | 0x20) <= 'f'); }

bool HasScheme(std::string_view address) {
  const auto end = std::ranges::find_if_not(
      address, [](char c) { return IsLetterOrDigit(c) || c == '+' || c == '-' || c == '.'; });
  return std::string_view(end, address.end()).starts_with(kSchemeMark);
}

std::string WithScheme(std::string_view address) {
  if (address.starts_with("//")) return std::string(kHttp).append(address);
  if (HasScheme(address)) return std::string(address);
  return fmt::format("{}//{}", kHttp, address);
}

// The characters of RFC 3986 that stand for themselves behind the host, and "%" of an escape.
bool IsAllowed(std::string_view rest) {
  constexpr std::string_view kMarks = "-._~:/?#@!$&'()*+,;=";
  const char c = rest.front();
  if (c == '%') return rest.size() > 2 && IsHexDigit(rest[1]) && IsHexDigit(rest[2]);
  return IsLetterOrDigit(c) || kMarks.find(c) != kMarks.npos;
}

std::string Encoded(std::string_view rest) {
  std::string text;
  for (; !rest.empty(); rest.remove_prefix(1)) {
    const char c = rest.front();
    text +=
        IsAllowed(rest) ? std::string(1, c) : fmt::format("%{:02X}", static_cast<unsigned char>(c));
  }
  return text;
}

std::size_t EndOfHost(std::string_view address) {
  const auto scheme = address.find("//");
  const auto host = scheme == address.npos ? 0 : scheme + 2;
  return std::min(address.find_first_of("/?#", host), address.size());
}

// Empty when `address` is no URL or has no host that a name server could know.
std::string WithAsciiHost(const std::string& address) {
  const UrlHandle url(curl_url());
  if (curl_url_set(url.get(), CURLUPART_URL, address.c_str(), 0) != CURLUE_OK) return "";
  const std::string host = UrlPart(url, CURLUPART_HOST, CURLU_URLDECODE);
  if (std::ranges::none_of(host, [](char c) { return c < 0; })) return address;
  char* ascii = nullptr;
  if (idn2_to_ascii_8z(host.c_str(), &ascii, IDN2_NONTRANSITIONAL) != IDN2_OK) return "";
  curl_url_set(url.get(), CURLUPART_HOST, ascii, 0);
  idn2_free(ascii);
  return UrlPart(url, CURLUPART_URL);
}

}  // namespace

std::string_view WithoutFeedScheme(std::string_view address) {
  if (!BeginsWith(address, kFeed)) return address;
  address.remove_prefix(kFeed.size());
  if (address.starts_with("//")) address.remove_prefix(2);
  return address;
}

std::string RequestAddress(std::string_view address) {
  const std::string_view trimmed = Trim(address);
  std::string_view inner = WithoutFeedScheme(trimmed);
  const bool isFeed = inner.size() < trimmed.size();
  if (BeginsWith(inner, kFile)) {
    return isFeed ? std::string(address) : Encoded(inner);
  }
  const std::string whole = WithScheme(inner);
  const auto rest = EndOfHost(whole);
  const std::string fit = WithAsciiHost(whole.substr(0, rest) + Encoded(whole.substr(rest)));
  return fit.empty() ? std::string(address) : fit;
}

}  // namespace feedloom
