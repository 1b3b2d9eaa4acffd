#include "check/FeedCheck.h"

#include <array>
#include <span>

#include "feed/WebAddress.h"
#include "fetch/FeedFetch.h"
#include "fetch/TimeLimit.h"
#include "files/TempFile.h"
#include "refresh/RefreshRun.h"
#include "xml/HtmlLinks.h"

namespace feedloom {
namespace {

constexpr std::array<std::string_view, 3> kTypes = {"application/rss+xml", "application/atom+xml",
                                                    "application/feed+json"};

// Returns the first feed of one of `types` that the HTML page in the file `path` announces with a
// http or https address, escaped. The page's own address does not count.
std::string AnnouncedFeed(const std::string& path, const std::string& pageAddress,
                          std::span<const std::string_view> types) {
  for (const std::string& link : AlternateLinks(path, pageAddress, types)) {
    if (IsWebAddress(link) && link != pageAddress) return EscapedAddress(link);
  }
  return "";
}

FeedCheckAnswer Examine(const FetchServices& services, const FeedRequest& request,
                        std::stop_token stop) {
  FeedParser parser(services.Reading());
  const TimeLimit limit(services.clock, RefreshLimits().timeLimit, std::move(stop));
  const FetchOutcome outcome = FetchFeedFile(request, services, limit.Token(), parser);
  FeedCheckAnswer answer{.loginServer = outcome.loginServer,
                         .loginIsLost = outcome.loginIsLost,
                         .fault = outcome.fault};
  if (outcome.result == kChannelRefreshed) {
    answer.isFeed = true;
    answer.title = parser.GetChannelTitle();
    answer.homePage = parser.GetChannelLink();
  }
  const bool mayBePage =
      outcome.result == kDocumentRefused && parser.GetFormat() == FeedFormat::Unknown;
  if (!mayBePage) return answer;
  // The last type is of feeds that only a lenient reading takes.
  const auto types = std::span(kTypes).first(services.isLenient ? 3 : 2);
  answer.announcedFeed = AnnouncedFeed(request.path, outcome.address, types);
  return answer;
}

}  // namespace

FeedCheckAnswer CheckFeed(const FetchServices& services, const std::string& address,
                          const std::optional<GivenLogin>& login, std::stop_token stop) {
  constexpr std::chrono::milliseconds kWait{1000};
  const TempFile file(CheckFilePath(services.workDir));
  file.Remove();
  services.clock.Pause(kWait, stop);
  if (stop.stop_requested()) return {};
  return Examine(services, {.address = address, .path = file.Path(), .login = login},
                 std::move(stop));
}

}  // namespace feedloom
