// What a list of subscriptions adds to those that are there. Pure; any thread. Texts are in the
// module's code page.
#pragma once

#include "exchange/Subscriptions.h"

namespace feedloom {

struct MissingSubscriptions {
  SubscriptionList folders;  // those of the list that have anything to add
  int present = 0;           // channels of the list that are there already
};

// Returns the folders of `wanted` with the channels whose address no folder of `there` holds; what
// the user has moved to another folder is not missing. A folder without any is missing as long as
// it had no channels in `wanted` and `there` has none of its name. Names and addresses count as
// equal when the store would hold them as the same texts (with their entities decoded), addresses
// also when they differ in the case of scheme and host only.
MissingSubscriptions MissingFrom(const SubscriptionList& there, const SubscriptionList& wanted);

// Returns whether `there` has a folder with a name of `wanted`, or a channel with one of its
// addresses.
bool Overlaps(const SubscriptionList& there, const SubscriptionList& wanted);

}  // namespace feedloom
