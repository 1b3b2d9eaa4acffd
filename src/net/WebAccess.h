// The user's settings for access to the web.
#pragma once

#include <string>

#include "net/ProxySettings.h"

namespace feedloom {

// The value of the header User-Agent when the user has not chosen another; ASCII.
const std::string& DefaultUserAgent();

struct WebAccess {
  ProxySettings proxy = {};
  std::string userAgent = DefaultUserAgent();
  std::string loginFile = {};  // the path of the logins that are kept; empty: none are
};

// The current proxy, the value UserAgent of the module's registry key, and HostLoginsPath.
// DefaultUserAgent() when that value is missing, empty, or contains a control character. Any thread
// may call it.
WebAccess ReadWebAccess(const Registry& registry);

}  // namespace feedloom
