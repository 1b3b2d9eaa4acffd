#include "profile/HostWishes.h"

#include <fmt/core.h>

#include "files/Registry.h"
#include "files/RegistryKeys.h"
#include "profile/Profile.h"
#include "skin/HostConfig.h"

namespace feedloom {

std::vector<RegistryEntry> HostWishes() {
  return {{kHostKey, kValueDialogs, kDialogsHelpful},
          {kHostKey, kValueEmptyList, kEmptyListLine},
          {kHostKey, kValueIcons, kIconsOn},
          {kHostKey, kValueLenient, kLenientOn},
          {kHostKey, kValueListPlace, kListAbove},
          {kHostKey, kValueNotice, kNoticeChannels},
          {kHostKey, kValuePeriods, kPeriodsOn},
          {kHostKey, kValueSearch, kSearchText},
          {kHostKey, kValueSelection, kSelectionCareful},
          {kHostKey, kValueStart, kStartLast},
          {kHostKey, kValueUpdates, kUpdatesByHost}};
}

Failure StoreHostWishes(const std::string& dir) {
  const ProfilePaths paths(dir);
  const Registry registry(paths.registry);
  std::vector<RegistryEntry> missing = HostWishes();
  std::erase_if(missing, [&](const RegistryEntry& wish) {
    return registry.ReadString(wish.key, wish.name).has_value();
  });
  if (registry.ReadString(kHostKey, kValueAppTitle) == kDefaultAppTitle) {
    missing.push_back({kHostKey, kValueAppTitle, kOwnTitle});
  }
  if (missing.empty() || registry.Write(missing)) return {};
  return fmt::format("Cannot write the registry file '{}'.", paths.registry);
}

}  // namespace feedloom
