// A list of subscriptions as a plain value. Texts are in the module's code page.
#pragma once

#include <string>
#include <vector>

#include "store/Rows.h"

namespace feedloom {

struct SubscriptionFolder {
  std::string name;
  std::vector<Channel> channels = {};
};

using SubscriptionList = std::vector<SubscriptionFolder>;  // in display order

// The number of channels in all folders. Pure; any thread.
int CountChannels(const SubscriptionList& list);

}  // namespace feedloom
