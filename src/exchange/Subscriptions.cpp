#include "exchange/Subscriptions.h"

namespace feedloom {

int CountChannels(const SubscriptionList& list) {
  std::size_t count = 0;
  for (const SubscriptionFolder& folder : list) count += folder.channels.size();
  return static_cast<int>(count);
}

}  // namespace feedloom
