#include "shell/SiteIconKeeper.h"

#include <map>
#include <utility>

#include "look/SiteIconImage.h"
#include "refresh/SiteIconRun.h"
#include "store/Channels.h"
#include "threads/ThreadPriority.h"

namespace feedloom {
namespace {

struct SiteIcon {
  QImage image;
  std::vector<int> channels;
};

std::vector<SiteIcon> ReadIcons(const FetchServices& services, const QColor& ground,
                                const std::stop_token& stop) {
  std::vector<Channel> channels;
  LoadChannelAddresses(*services.store, channels);
  std::map<std::string, std::vector<int>> sites;  // by the path of the icon
  for (const Channel& channel : channels) {
    const std::string site = SiteOf(channel, services.TextCodePage());
    if (!site.empty()) sites[SiteIconPath(services.workDir, site)].push_back(channel.id);
  }
  std::vector<SiteIcon> icons;
  for (auto& [path, ids] : sites) {
    if (stop.stop_requested()) break;
    const QImage image = SiteIconImage(ReadSiteIcon(path));
    if (!image.isNull()) icons.push_back({OnGround(image, ground), std::move(ids)});
  }
  return icons;
}

ChannelIcons IconsByChannel(const std::vector<SiteIcon>& icons) {
  ChannelIcons all;
  for (const SiteIcon& icon : icons) {
    const QPixmap shared = QPixmap::fromImage(icon.image);
    for (const int id : icon.channels) all.emplace(id, shared);
  }
  return all;
}

}  // namespace

SiteIconKeeper::SiteIconKeeper(SharedServices services, HostConfig host, QColor ground,
                               BackgroundJobs::Post toOwner, Show show)
    : services_(std::move(services)),
      host_(std::move(host)),
      ground_(ground),
      show_(std::move(show)),
      isOn_(host_.ShowsSiteIcons()),
      jobs_(std::move(toOwner)) {
  if (isOn_) Start(false);
}

void SiteIconKeeper::Renew() {
  FollowHost();
  if (isOn_) Start(true);
}

void SiteIconKeeper::FollowHost() {
  if (std::exchange(isOn_, host_.ShowsSiteIcons()) == isOn_) return;
  jobs_.StopAll();
  isOn_ ? Start(true) : show_({});
}

// Without a thread the icons stay as they are.
void SiteIconKeeper::Start(bool asks) {
  const auto job = [asks, services = services_, ground = ground_, show = show_](
                       const std::stop_token& stop, const BackgroundJobs::Tell& tell) {
    LowerThreadPriority();
    if (asks) AskForIcons(*services, SiteIconFile, stop);
    tell([show, icons = ReadIcons(*services, ground, stop)] { show(IconsByChannel(icons)); });
  };
  jobs_.Start(job, [] {});
}

}  // namespace feedloom
