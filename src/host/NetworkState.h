#pragma once

namespace feedloom {

// Whether the machine has a network, as the system's NetworkManager says. True where there is none.
// Interface thread, with an application object.
bool IsOnline();

}  // namespace feedloom
