#include "check/FeedCheck.h"

#include "check/AnnouncedFeeds.h"
#include "fetch/FeedFetch.h"
#include "fetch/TimeLimit.h"
#include "files/TempFile.h"
#include "refresh/RefreshRun.h"

namespace feedloom {
namespace {

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
  const auto announced = AnnouncedFeeds(request.path, outcome, parser, services.isLenient);
  if (!announced.empty()) answer.announcedFeed = announced.front();
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
