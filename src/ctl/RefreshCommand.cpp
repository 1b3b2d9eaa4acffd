// feedloomctl refresh: fetches the feeds and stores their new posts.
#include "ctl/Commands.h"
#include "ctl/RefreshProgress.h"
#include "ctl/Selection.h"
#include "ctl/Session.h"
#include "refresh/RefreshEngine.h"
#include "store/Channels.h"
#include "store/Folders.h"

namespace feedloom {
namespace {

// Ignores the messages for a host: this program shows no busy mark.
class NoHost : public MessageTarget {
 public:
  std::intptr_t Send(unsigned, std::intptr_t, std::intptr_t) override { return 0; }
};

// Returns the channels that `options` select, all of them without an option. When there is no such
// channel or folder, prints an error and returns nothing.
std::optional<std::vector<ChannelRow>> ChannelsToRefresh(Session& session,
                                                         const RefreshOptions& options) {
  Store& store = session.GetStore();
  if (options.folder && !FindFolder(store, *options.folder)) return std::nullopt;
  if (options.channel && !FindChannel(store, *options.channel)) return std::nullopt;
  std::vector<ChannelRow> channels;
  if (!LoadChannelList(store, channels)) return std::nullopt;
  std::erase_if(channels, [&](const ChannelRow& channel) {
    return (options.channel && channel.id != *options.channel) ||
           (options.folder && channel.folderId != *options.folder);
  });
  return channels;
}

}  // namespace

int RunRefresh(Session& session, const RefreshOptions& options) {
  const auto channels = ChannelsToRefresh(session, options);
  if (!channels) return kFailure;
  const SharedServices services = session.Services();
  if (!services) return kFailure;
  RefreshProgress progress(session, *channels);
  if (!channels->empty()) {
    NoHost host;
    RefreshEngine engine(services, progress, host, {}, [&](int channelId, int stored, int missing) {
      progress.CountPosts(channelId, stored, missing);
    });
    progress.TakeVisitsFrom([&](const Channel& channel) { return engine.LastVisit(channel); });
    engine.Enqueue({channels->begin(), channels->end()});
    engine.StartRefresh();
    progress.Wait();
  }
  progress.PrintSummary();
  return session.Finish(progress.AllRefreshed() ? kSuccess : kFailure);
}

}  // namespace feedloom
