#pragma once

#include "host/HostProfile.h"

namespace feedloom {

// Tells the user that the profile's database is damaged or missing, and does what he chooses:
// restores the newest good copy, if there is one, or begins with an empty database. Returns false
// when he chooses neither, or after a failure, which is told. Nothing is overwritten. Needs a
// display; no application object is left. Interface thread.
bool OfferRepair(HostProfile& profile);

}  // namespace feedloom
