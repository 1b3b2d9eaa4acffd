#include "net/Url.h"

#include <algorithm>

#include "net/UrlHandle.h"

namespace feedloom {

std::string UrlPart(const UrlHandle& url, CURLUPart part, unsigned flags) {
  char* text = nullptr;
  if (curl_url_get(url.get(), part, &text, flags) != CURLUE_OK) return "";
  std::string result = text;
  curl_free(text);
  return result;
}

namespace {

std::string PartOf(const std::string& address, CURLUPart part, unsigned flags = 0) {
  const UrlHandle url(curl_url());
  if (curl_url_set(url.get(), CURLUPART_URL, address.c_str(), CURLU_GUESS_SCHEME) != CURLUE_OK) {
    return "";
  }
  return UrlPart(url, part, flags);
}

}  // namespace

std::string UrlScheme(const std::string& address) { return PartOf(address, CURLUPART_SCHEME); }

std::string UrlHost(const std::string& address) { return PartOf(address, CURLUPART_HOST); }

std::string UrlPath(const std::string& address) {
  return PartOf(address, CURLUPART_PATH, CURLU_URLDECODE);
}

std::string UrlOrigin(const std::string& address) {
  const UrlHandle url(curl_url());
  if (curl_url_set(url.get(), CURLUPART_URL, address.c_str(), 0) != CURLUE_OK) return "";
  const std::string host = UrlPart(url, CURLUPART_HOST);
  if (host.empty()) return "";
  const std::string port = UrlPart(url, CURLUPART_PORT, CURLU_NO_DEFAULT_PORT);
  return UrlPart(url, CURLUPART_SCHEME) + "://" + host + (port.empty() ? "" : ":" + port);
}

// By hand: also an address that the library refuses must not show its password.
std::string UrlWithoutLogin(const std::string& address) {
  const auto scheme = address.find("//");
  const auto host = scheme == address.npos ? 0 : scheme + 2;
  const auto end = std::min(address.find_first_of("/?#", host), address.size());
  const auto mark = address.substr(0, end).rfind('@');
  if (mark == address.npos || mark < host) return address;
  return address.substr(0, host) + address.substr(mark + 1);
}

std::string ResolveUrl(const std::string& base, const std::string& reference) {
  if (reference.empty() || reference.front() == '#') return "";
  const UrlHandle url(curl_url());
  curl_url_set(url.get(), CURLUPART_URL, base.c_str(), CURLU_URLENCODE);
  // The library resolves a relative reference against the address that the handle holds.
  if (curl_url_set(url.get(), CURLUPART_URL, reference.c_str(), CURLU_URLENCODE) != CURLUE_OK) {
    return "";
  }
  const std::string address = UrlPart(url, CURLUPART_URL);
  // The library composes some addresses that it cannot parse, "file:a" for instance.
  return UrlScheme(address).empty() ? "" : address;
}

}  // namespace feedloom
