#include "check/AnnouncedFeeds.h"

#include <array>
#include <span>

#include "feed/WebAddress.h"
#include "xml/HtmlLinks.h"

namespace feedloom {
namespace {

constexpr std::array<std::string_view, 3> kTypes = {"application/rss+xml", "application/atom+xml",
                                                    "application/feed+json"};

}  // namespace

std::vector<std::string> AnnouncedFeeds(const std::string& path, const FetchOutcome& outcome,
                                        const FeedParser& parser, bool isLenient) {
  const bool mayBePage =
      outcome.result == kDocumentRefused && parser.GetFormat() == FeedFormat::Unknown;
  if (!mayBePage) return {};
  const auto types = std::span(kTypes).first(isLenient ? 3 : 2);
  std::vector<std::string> feeds;
  for (const std::string& link : AlternateLinks(path, outcome.address, types)) {
    if (IsWebAddress(link) && link != outcome.address) feeds.push_back(EscapedAddress(link));
  }
  return feeds;
}

}  // namespace feedloom
