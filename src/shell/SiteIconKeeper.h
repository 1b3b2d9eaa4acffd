#pragma once

#include <QColor>
#include <vector>

#include "fetch/FetchServices.h"
#include "skin/HostConfig.h"
#include "threads/BackgroundJobs.h"
#include "ui/tree/GroupTreeModel.h"

namespace feedloom {

// The icons of the channels' sites, in a host that wants them (HostConfig::ShowsSiteIcons): asks
// the sites behind a refresh, and reads what is kept. Sites, files and pictures are dealt with on a
// background thread. Interface thread only.
class SiteIconKeeper {
 public:
  using Show = std::function<void(ChannelIcons icons)>;

  // Reads the icons that are kept. `ground` is the colour on which they are shown. `show` is called
  // each time that icons have been read, and with none when the host does not want them any more.
  SiteIconKeeper(SharedServices services, HostConfig host, QColor ground,
                 BackgroundJobs::Post toOwner, Show show);

  // Asks the sites whose turn it is, and shows all icons then.
  void Renew();
  // Looks again at what the host wants.
  void FollowHost();

 private:
  void Start(bool asks);

  const SharedServices services_;
  const HostConfig host_;
  const QColor ground_;
  const Show show_;
  bool isOn_;
  BackgroundJobs jobs_;
};

}  // namespace feedloom
