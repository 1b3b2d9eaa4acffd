#include "ctl/FetchOnce.h"

#include "fetch/TimeLimit.h"
#include "refresh/RefreshRun.h"

namespace feedloom {

FetchOutcome FetchOnce(Session& session, const std::string& address, FeedParser& parser,
                       const std::optional<GivenLogin>& login) {
  const SharedServices services = session.Services();
  if (!services) return {kDownloadFailed, kParsed, "there is no folder to work in"};
  const TimeLimit limit(services->clock, RefreshLimits().timeLimit);
  FetchOutcome outcome =
      FetchFeed({.address = address, .path = CheckFilePath(services->workDir), .login = login},
                *services, limit.Token(), parser);
  if (limit.RanOut()) outcome.error = "it took too long";
  return outcome;
}

}  // namespace feedloom
