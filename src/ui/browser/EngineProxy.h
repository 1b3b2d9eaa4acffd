#pragma once

#include <string>

namespace feedloom {

struct ProxySettings;

// The command line options with which the browser engine uses the proxy of `settings`, as
// transfers do (net/ProxySettings.h); "" without a proxy, when the engine keeps its own
// choice. Parts with characters that no address has are left out. Pure.
std::string EngineProxyOptions(const ProxySettings& settings);

// Passes these options to the engine. Takes effect only before the engine starts, which it does
// once in a process. Interface thread.
void UseProxyInEngine(const ProxySettings& settings);

}  // namespace feedloom
