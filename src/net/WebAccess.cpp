#include "net/WebAccess.h"

#include "files/RegistryKeys.h"
#include "net/HostLogin.h"
#include "text/Text.h"

namespace feedloom {

const std::string& DefaultUserAgent() {
  static const std::string agent = "Feedloom/" FEEDLOOM_VERSION;
  return agent;
}

WebAccess ReadWebAccess(const Registry& registry) {
  WebAccess access{.proxy = ReadProxySettings(registry), .loginFile = HostLoginsPath(registry)};
  std::string agent = registry.ReadString(kModuleKey, kValueUserAgent).value_or("");
  if (!agent.empty() && !HasControls(agent)) access.userAgent = std::move(agent);
  return access;
}

}  // namespace feedloom
