#include "host/HostSwitches.h"

#include "host/Autostart.h"
#include "skin/HostConfig.h"
#include "skin/Keys.h"

namespace feedloom {
namespace {

// Where the profile was when it was opened.
std::string ProfileDirOf(const Registry& registry) {
  return registry.ReadString(kHostKey, kValueProfileDir).value_or("");
}

}  // namespace

bool KeepsRunning(const Registry& registry) {
  return registry.ReadString(kHostKey, kValueClose) == kCloseToTray;
}

bool NotifiesDesktop(const Registry& registry) {
  return registry.ReadString(kHostKey, kValueNotifications) == kNotificationsOn;
}

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
       true},
      {kHostTextMenuKeepRunning, kHostTextKeepRunningTip, KeepsRunning,
       [](const Registry& registry, bool isOn) {
         return registry.WriteString(kHostKey, kValueClose, isOn ? kCloseToTray : "");
       },
       false},
      {kHostTextMenuAutostart, nullptr, [](const Registry&) { return StartsWithSession(); },
       [](const Registry& registry, bool isOn) {
         return SetStartsWithSession(ProfileDirOf(registry), isOn);
       },
       false},
      {kHostTextMenuNotifications, nullptr, NotifiesDesktop,
       [](const Registry& registry, bool isOn) {
         return registry.WriteString(kHostKey, kValueNotifications, isOn ? kNotificationsOn : "");
       },
       false}};
  return kSwitches;
}

}  // namespace feedloom
