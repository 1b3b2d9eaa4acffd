#include "refresh/SiteIconRun.h"

#include <atomic>
#include <map>
#include <set>
#include <thread>
#include <vector>

#include "fetch/FeedMemory.h"
#include "store/Channels.h"
#include "threads/Thread.h"

namespace feedloom {
namespace {

constexpr std::size_t kThreads = 4;

// What is asked for, by the path at which it is kept.
using IconAddresses = std::map<std::string, std::string>;

bool WasReached(const FeedVisit& last) {
  return last.fault.kind == FeedFaultKind::None && last.succeeded != std::chrono::sys_seconds();
}

// Returns what is due of the icons of `channels`.
IconAddresses DueIcons(const std::vector<Channel>& channels, const FetchServices& services) {
  FeedMemory memory(services.feedMemory);
  memory.Load();
  IconAddresses due;
  std::set<std::string> all;
  for (const Channel& channel : channels) {
    const std::string site = SiteOf(channel, services.TextCodePage());
    const std::string path = site.empty() ? "" : SiteIconPath(services.workDir, site);
    if (path.empty()) continue;
    all.insert(path);
    if (!WasReached(memory.Last(channel.id, channel.xmlLink))) continue;
    if (IsIconDue(path, services.clock.Now())) due.emplace(path, site + "/favicon.ico");
  }
  SweepSiteIcons(services.workDir, all);
  return due;
}

// Runs `work` on this thread and on so many others as the system gives, `count` in all.
void RunOnThreads(std::size_t count, const std::function<void()>& work) {
  std::vector<std::thread> others(count - 1);
  for (std::thread& other : others) {
    if (!StartThread(other, work)) break;
  }
  work();
  for (std::thread& other : others) {
    if (other.joinable()) other.join();
  }
}

}  // namespace

void AskForIcons(const FetchServices& services, const IconMaker& make, std::stop_token stop) {
  std::vector<Channel> channels;
  if (stop.stop_requested() || !LoadChannelAddresses(*services.store, channels)) return;
  const IconAddresses due = DueIcons(channels, services);
  const std::vector<IconAddresses::value_type> icons(due.begin(), due.end());
  if (icons.empty()) return;
  TransferPool pool;
  std::atomic<std::size_t> next = 0;
  RunOnThreads(std::min(kThreads, icons.size()), [&] {
    for (std::size_t i = next++; i < icons.size() && !stop.stop_requested(); i = next++)
      AskForIcon(icons[i].second, icons[i].first, services, make, pool, stop);
  });
}

}  // namespace feedloom
