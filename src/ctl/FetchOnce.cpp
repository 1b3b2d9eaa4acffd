#include "ctl/FetchOnce.h"

#include <thread>

#include "ingest/RefreshRun.h"

namespace feedloom {

FetchOutcome FetchOnce(Session& session, const std::string& address, FeedParser& parser) {
  const SharedServices services = session.Services();
  if (!services) return {kDownloadFailed, kParsed, "there is no folder to work in"};
  std::stop_source stop;
  const std::jthread watchdog([&](const std::stop_token& done) {
    services->clock.Pause(RefreshLimits().timeLimit, done);
    if (!done.stop_requested()) stop.request_stop();
  });
  FetchOutcome outcome =
      FetchFeed(address, CheckFilePath(services->workDir), *services, stop.get_token(), parser);
  if (stop.stop_requested()) outcome.error = "it took too long";
  return outcome;
}

}  // namespace feedloom
