#include "fetch/OwnPeriods.h"

#include <variant>

#include "files/RegistryKeys.h"

namespace feedloom {

OwnPeriods LoadOwnPeriods(const Registry& registry) {
  OwnPeriods periods;
  for (const RegistryEntry& entry : registry.ReadKey(kPeriodsKey)) {
    const auto* const minutes = std::get_if<std::uint32_t>(&entry.value);
    if (minutes != nullptr) periods[entry.name] = std::chrono::minutes(*minutes);
  }
  return periods;
}

bool StoreOwnPeriod(const Registry& registry, const std::string& address,
                    std::chrono::minutes period) {
  return registry.WriteDword(kPeriodsKey, address, static_cast<std::uint32_t>(period.count()));
}

}  // namespace feedloom
