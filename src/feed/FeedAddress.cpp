#include "feed/FeedAddress.h"

#include <algorithm>

#include "net/Url.h"
#include "text/Text.h"

namespace feedloom {
namespace {

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

bool IsOfScheme(char c) { return IsLetter(c) || IsDigit(c) || c == '+' || c == '-' || c == '.'; }

}  // namespace

bool HasScheme(std::string_view address) {
  const std::string_view scheme = address.substr(0, address.find(':'));
  return scheme.size() < address.size() && !scheme.empty() && IsLetter(scheme[0]) &&
         std::ranges::all_of(scheme, IsOfScheme);
}

std::string AbsoluteAddress(const std::string& base, const std::string& reference) {
  if (reference.empty() || base.empty() || HasScheme(reference)) return reference;
  if (reference.front() == '#') return base.substr(0, base.find('#')) + reference;
  const std::string absolute = ResolveUrl(base, reference);
  return absolute.empty() ? reference : absolute;
}

}  // namespace feedloom
