#include "shell/MovedChannels.h"

#include <vector>

#include "files/RegistryKeys.h"
#include "skin/Keys.h"
#include "skin/Skin.h"
#include "skin/TextPlaceholders.h"
#include "ui/ChannelReport.h"
#include "ui/Refreshing.h"
#include "ui/tree/NewAddresses.h"

namespace feedloom {
namespace {

std::string TextOf(const Skin& skin, const std::vector<std::string>& titles) {
  if (titles.empty()) return {};
  if (titles.size() == 1) {
    return WithTitle(skin.GetText(kSectionTexts, kTextOneMoved), titles.front());
  }
  return WithNumbers(skin.GetText(kSectionTexts, kTextManyMoved),
                     {static_cast<int>(titles.size())});
}

}  // namespace

std::string TellMovedOnce(const Skin& skin, const Registry& registry,
                          const SubscriptionList& subscriptions, const Refreshing& refreshing) {
  if (!OffersNewAddresses(skin)) return {};
  const std::string told = registry.ReadString(kViewKey, kValueMoved).value_or("");
  std::string moved;  // "12 http://new.example/ 15 …": an address has no blank
  std::vector<std::string> titles;
  for (const SubscriptionFolder& folder : subscriptions) {
    for (const Channel& channel : folder.channels) {
      const std::string address = NewAddressOf(channel, refreshing.LastVisit(channel));
      if (address.empty()) continue;
      const std::string entry = std::to_string(channel.id) + ' ' + address + ' ';
      moved += entry;
      if ((' ' + told).find(' ' + entry) == std::string::npos) titles.push_back(channel.title);
    }
  }
  // What cannot be written is told again.
  if (moved != told) static_cast<void>(registry.WriteString(kViewKey, kValueMoved, moved));
  return TextOf(skin, titles);
}

}  // namespace feedloom
