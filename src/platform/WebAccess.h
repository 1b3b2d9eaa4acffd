// How the user wants the web to be reached.
#pragma once

#include <string>

#include "platform/ProxySettings.h"

namespace feedloom {

// The name under which servers see the module when the user has not chosen another; ASCII.
const std::string& DefaultUserAgent();

struct WebAccess {
  ProxySettings proxy = {};
  std::string userAgent = DefaultUserAgent();
};

// Reads the proxy and the registry value UserAgent, which stands beside the module's settings,
// afresh. One that is missing, empty, or that no header can hold, leaves the default.
WebAccess ReadWebAccess(const Registry& registry);

}  // namespace feedloom
