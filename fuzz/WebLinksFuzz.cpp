// Parses any bytes as a page that announces feeds. The extracted addresses are complete, and only
// web addresses are followed.
#include <algorithm>
#include <array>

#include "feed/WebAddress.h"
#include "fuzz/FuzzKit.h"
#include "net/RequestAddress.h"
#include "net/Url.h"
#include "xml/HtmlLinks.h"

namespace feedloom {
namespace {

bool IsPlain(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return c > ' ' && c <= '~'; });
}

// Returns the address from its path on.
std::string_view BehindHost(std::string_view address) {
  const auto host = address.find("://");
  const auto path = address.find('/', host == address.npos ? 0 : host + 3);
  return path == address.npos ? "" : address.substr(path, address.find('#', path) - path);
}

void CheckScheme(const std::string& address) {
  const std::string fit = RequestAddress(address);
  const std::string scheme = UrlScheme(fit);
  Require(scheme == "http" || scheme == "https" || scheme.empty(),
          "a web address is one for the transfer, too");
}

// Bytes before the path may be those of a login, which the library takes apart.
void CheckRequest(const std::string& address) {
  const std::string fit = RequestAddress(address);
  if (UrlScheme(fit).empty() || fit == address) return;
  Require(IsPlain(BehindHost(fit)), "what is requested behind the host is ASCII without blanks");
  RequireEqual(RequestAddress(fit), fit, "an address that is fit stays");
}

void CheckLink(const std::string& link) {
  Require(!UrlScheme(link).empty(), "an announced feed has a complete address");
  if (!IsWebAddress(link)) return;
  const std::string address = EscapedAddress(link);
  Require(IsPlain(address), "an address is ASCII without blanks");
  CheckScheme(address);
}

void CheckResolved(const std::string& base, const std::string& reference) {
  const std::string address = ResolveUrl(base, reference);
  if (address.empty()) return;
  Require(!reference.empty() && reference[0] != '#', "the document itself is no address");
  Require(!UrlScheme(address).empty(), "a resolved address is complete");
  Require(std::ranges::none_of(BehindHost(address), [](char c) { return c < 0; }),
          "a path is ASCII");
  RequireEqual(ResolveUrl(base, address), address, "a complete address stands for itself");
}

void CheckPage(std::string_view html, const std::string& address) {
  constexpr std::array<std::string_view, 2> kTypes = {"application/rss+xml",
                                                      "application/atom+xml"};
  const MemoryFile document(html);
  const auto links = AlternateLinks(document.Path(), address, kTypes);
  Require(links.size() <= 100, "a page's links are bounded");
  for (const std::string& link : links) CheckLink(link);
}

void CheckTyped(const std::string& typed) {
  const std::string address = CompleteFeedAddress(typed, "http");
  if (address.empty()) return;
  Require(IsPlain(address), "a typed address is kept in ASCII");
  Require(address.find("://") != address.npos || IsWebAddress(address), "a typed one is complete");
  RequireEqual(CompleteFeedAddress(address, "https"), address, "a complete address stays");
  if (IsWebAddress(address)) CheckScheme(address);
}

}  // namespace

void CheckInput(FuzzInput input) {
  // The transfer library's texts end at a zero byte.
  const std::string page = input.TakeText().c_str();
  const std::string reference = input.TakeText().c_str();
  CheckResolved(page, reference);
  CheckRequest(reference);
  CheckTyped(reference);
  if (!input.IsEmpty())
    CheckPage(input.Rest(), page);  // only when there is input left: it takes far longer
}

}  // namespace feedloom
