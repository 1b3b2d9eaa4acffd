#include "ctl/FetchOnce.h"

#include <utility>

#include "check/AnnouncedFeeds.h"
#include "fetch/TimeLimit.h"
#include "files/TempFile.h"
#include "refresh/RefreshRun.h"

namespace feedloom {

FetchedOnce FetchOnce(Session& session, const std::string& address, FeedParser& parser,
                      const std::optional<GivenLogin>& login) {
  const SharedServices services = session.Services();
  if (!services) {
    const std::string reason = "there is no folder to work in";
    return {{.result = kDownloadFailed,
             .parseCode = kParsed,
             .error = reason,
             .fault = {.kind = FeedFaultKind::Other, .detail = reason}}};
  }
  const TimeLimit limit(services->clock, RefreshLimits().timeLimit);
  const TempFile file(CheckFilePath(services->workDir));
  FetchOutcome outcome = FetchFeedFile({.address = address, .path = file.Path(), .login = login},
                                       *services, limit.Token(), parser);
  if (limit.RanOut()) outcome.error = "it took too long";
  auto announced = AnnouncedFeeds(file.Path(), outcome, parser, services->isLenient);
  return {std::move(outcome), std::move(announced)};
}

}  // namespace feedloom
