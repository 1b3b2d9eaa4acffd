#include "ctl/FetchOnce.h"

#include "fetch/TimeLimit.h"
#include "refresh/RefreshRun.h"

namespace feedloom {

FetchOutcome FetchOnce(Session& session, const std::string& address, FeedParser& parser,
                       const std::optional<GivenLogin>& login) {
  const SharedServices services = session.Services();
  if (!services) {
    const std::string reason = "there is no folder to work in";
    return {.result = kDownloadFailed,
            .parseCode = kParsed,
            .error = reason,
            .fault = {.kind = FeedFaultKind::Other, .detail = reason}};
  }
  const TimeLimit limit(services->clock, RefreshLimits().timeLimit);
  FetchOutcome outcome =
      FetchFeed({.address = address, .path = CheckFilePath(services->workDir), .login = login},
                *services, limit.Token(), parser);
  if (limit.RanOut()) outcome.error = "it took too long";
  return outcome;
}

}  // namespace feedloom
