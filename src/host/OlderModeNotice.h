#pragma once

namespace feedloom {

class HostWindow;
struct HostProfile;

// Tells the user above `window`, once a profile, that its database must be in SQLite's older mode
// where it lies. Does not wait for the user. Interface thread.
void TellOlderMode(HostWindow& window, const HostProfile& profile);

}  // namespace feedloom
