// The user's proxy, as the system's Internet Settings hold it.
#pragma once

#include <string>
#include <string_view>

#include "platform/Registry.h"

namespace feedloom {

struct ProxySettings {
  bool enabled = false;
  std::string server;  // "host:port", or "http=host:port;https=host:port"
  std::string bypass;  // host names split by ";", "*" as a wildcard at the front of a name
};

// Reads ProxyEnable, ProxyServer and ProxyOverride afresh; both texts are empty when the proxy is
// not enabled. Environment variables have no say.
ProxySettings ReadProxySettings(const Registry& registry);

// The proxy for addresses of `scheme` ("http", "https"); empty means: connect directly.
std::string ProxyFor(const ProxySettings& settings, std::string_view scheme);

// The hosts that are reached directly, split by ",", in the form that libcurl's NOPROXY takes.
std::string DirectHosts(const ProxySettings& settings);

}  // namespace feedloom
