#include "ingest/FeedCheck.h"

#include "ingest/FeedFetch.h"
#include "platform/TempFile.h"

namespace feedloom {

int CheckFeed(const IngestServices& services, MessageTarget& dialog, const std::string& address,
              std::stop_token stop) {
  constexpr std::chrono::milliseconds kWait{1000};
  const std::string path = CheckFilePath(services.workDir);
  TempFile(path).Remove();
  services.clock.Pause(kWait, stop);
  if (stop.stop_requested()) return 0;
  FeedParser parser(services.TextCodePage());
  const bool isFeed = FetchFeed(address, path, services, stop, parser).result == kChannelRefreshed;
  if (stop.stop_requested()) return 0;
  std::string title = parser.GetChannelTitle();
  dialog.Send(kMessageFeedChecked, isFeed ? 1 : 0,
              isFeed ? reinterpret_cast<std::intptr_t>(&title) : 0);
  return isFeed ? 1 : 0;
}

}  // namespace feedloom
