// The user's proxy, kept in the registry under the system's Internet Settings. Any thread may call
// these functions.
#pragma once

#include <string>
#include <string_view>

#include "platform/Registry.h"

namespace feedloom {

struct ProxySettings {
  bool enabled = false;
  std::string server;  // "host:port", or "http=host:port;https=host:port"
  std::string bypass;  // host names separated by ";"; a name may begin with the wildcard "*"
};

// The current values of ProxyEnable, ProxyServer and ProxyOverride. Both texts are empty when the
// proxy is not enabled. Environment variables are ignored.
ProxySettings ReadProxySettings(const Registry& registry);

// The proxy for addresses with `scheme` ("http" or "https") as "host:port"; empty for a direct
// connection.
std::string ProxyFor(const ProxySettings& settings, std::string_view scheme);

// The hosts that are reached without the proxy, separated by ",": a value for CURLOPT_NOPROXY.
std::string DirectHosts(const ProxySettings& settings);

}  // namespace feedloom
