#pragma once

#include <string>

#include "exchange/Subscriptions.h"
#include "files/Registry.h"

namespace feedloom {

class Refreshing;
class Skin;

// Returns a status text about the channels whose feeds have gone elsewhere for good, as far as it
// was not told before: each address of a channel is told once, also if the program is started
// again. Empty when there is nothing to tell, and in a host whose menus offer no new addresses.
// `registry` keeps what was told. Interface thread.
std::string TellMovedOnce(const Skin& skin, const Registry& registry,
                          const SubscriptionList& subscriptions, const Refreshing& refreshing);

}  // namespace feedloom
