#include "host/HostSwitches.h"

#include "skin/HostConfig.h"
#include "skin/Keys.h"

namespace feedloom {

std::span<const HostSwitch> HostSwitches() {
  static constexpr HostSwitch kSwitches[] = {
      // The module reads the value each time that it is about to open a page.
      {kHostTextMenuLinksOutside, nullptr,
       [](const Registry& registry) { return HostConfig(registry).OpensLinksOutside(); },
       [](const Registry& registry, bool isOn) {
         return registry.WriteString(kHostKey, kValuePostLinks,
                                     isOn ? kLinksOutside : kLinksInPane);
       },
       false},
      {kHostTextMenuSiteIcons, kHostTextSiteIconsTip,
       [](const Registry& registry) { return HostConfig(registry).ShowsSiteIcons(); },
       [](const Registry& registry, bool isOn) {
         return registry.WriteString(kHostKey, kValueIcons, isOn ? kIconsOn : kIconsOff);
       },
       true}};
  return kSwitches;
}

}  // namespace feedloom
