#include "exchange/Missing.h"

#include <algorithm>
#include <string_view>
#include <unordered_set>

#include "store/SqlText.h"
#include "text/Text.h"

namespace feedloom {
namespace {

// The address with its scheme and host, which have no case (RFC 3986), in upper case. A name and a
// password before the host keep theirs.
std::string ComparedAddress(const std::string& stored) {
  const std::string address = UnescapeEntities(stored);
  const std::size_t mark = address.find("://");
  if (mark == std::string::npos) return address;
  const std::size_t authority = mark + 3;
  const std::size_t end = std::min(address.find_first_of("/?#", authority), address.size());
  const std::size_t login = address.substr(0, end).rfind('@');
  const std::size_t host = login == std::string::npos ? authority : std::max(login, authority);
  return ToUpperAscii(address.substr(0, authority)) + address.substr(authority, host - authority) +
         ToUpperAscii(address.substr(host, end - host)) + address.substr(end);
}

class Known {
 public:
  explicit Known(const SubscriptionList& list) {
    for (const SubscriptionFolder& folder : list) {
      names_.insert(UnescapeEntities(folder.name));
      for (const Channel& channel : folder.channels) {
        addresses_.insert(ComparedAddress(channel.xmlLink));
      }
    }
  }

  bool HasName(const SubscriptionFolder& folder) const {
    return names_.contains(UnescapeEntities(folder.name));
  }
  bool HasAddress(const Channel& channel) const {
    return addresses_.contains(ComparedAddress(channel.xmlLink));
  }

 private:
  std::unordered_set<std::string> names_;
  std::unordered_set<std::string> addresses_;
};

}  // namespace

MissingSubscriptions MissingFrom(const SubscriptionList& there, const SubscriptionList& wanted) {
  const Known known(there);
  MissingSubscriptions result;
  for (const SubscriptionFolder& folder : wanted) {
    SubscriptionFolder missing{folder.name};
    for (const Channel& channel : folder.channels) {
      known.HasAddress(channel) ? void(++result.present) : missing.channels.push_back(channel);
    }
    const bool isNewAndEmpty = folder.channels.empty() && !known.HasName(folder);
    if (isNewAndEmpty || !missing.channels.empty()) result.folders.push_back(std::move(missing));
  }
  return result;
}

bool Overlaps(const SubscriptionList& there, const SubscriptionList& wanted) {
  const Known known(there);
  return std::ranges::any_of(wanted, [&](const SubscriptionFolder& folder) {
    return known.HasName(folder) ||
           std::ranges::any_of(folder.channels,
                               [&](const Channel& channel) { return known.HasAddress(channel); });
  });
}

}  // namespace feedloom
