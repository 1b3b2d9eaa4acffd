// A list of subscriptions as a plain value. Texts are in the module's code page.
#pragma once

#include <string>
#include <vector>

namespace feedloom {

struct Subscription {
  std::string title;
  std::string xmlLink;        // the feed's address
  std::string htmlLink = {};  // the site's home page
};

struct SubscriptionFolder {
  std::string name;
  std::vector<Subscription> channels = {};
};

using SubscriptionList = std::vector<SubscriptionFolder>;  // in display order

// The number of channels in all folders. Pure; any thread.
int CountChannels(const SubscriptionList& list);

}  // namespace feedloom
