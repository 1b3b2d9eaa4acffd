// The user's proxy, kept in the registry under the system's Internet Settings. Any thread may call
// these functions.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "files/Registry.h"

namespace feedloom {

struct ProxySettings {
  bool enabled = false;
  std::string server;  // "host:port", or "http=host:port;https=host:port"
  std::string bypass;  // host names separated by ";", with "*" for any characters
};

// The current values of ProxyEnable, ProxyServer and ProxyOverride. Both texts are empty when the
// proxy is not enabled. Environment variables are ignored.
ProxySettings ReadProxySettings(const Registry& registry);

// The proxy for addresses with `scheme` ("http" or "https") as "host:port"; empty for a direct
// connection.
std::string ProxyFor(const ProxySettings& settings, std::string_view scheme);

// The parts of `server` or `bypass`, trimmed, without empty ones.
std::vector<std::string> ProxyFields(std::string_view list);

// The hosts that are reached without the proxy, separated by ",": a value for CURLOPT_NOPROXY of a
// transfer that begins at `host`. A name stands for its subdomains, too. A "*" that the library
// cannot express (not the first character of a name, not the last part of an IPv4 address) counts
// for `host` only, not for hosts that its server redirects to.
std::string DirectHosts(const ProxySettings& settings, const std::string& host);

}  // namespace feedloom
