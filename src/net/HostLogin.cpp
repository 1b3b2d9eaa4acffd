#include "net/HostLogin.h"

namespace feedloom {
namespace {

constexpr const char* kName = "Name";
constexpr const char* kPassword = "Password";

}  // namespace

std::string HostLoginsPath(const Registry& registry) { return registry.Beside("logins.reg"); }

// One reading of the file: another program may replace it between two.
std::optional<HostLogin> FindHostLogin(const std::string& path, const std::string& origin) {
  if (path.empty() || origin.empty()) return std::nullopt;
  HostLogin login;
  for (const RegistryEntry& entry : Registry(path).ReadKey(origin)) {
    const auto* const text = std::get_if<std::string>(&entry.value);
    if (text != nullptr) (entry.name == kName ? login.name : login.password) = *text;
  }
  return login.name.empty() ? std::nullopt : std::optional(login);
}

bool KeepHostLogin(const std::string& path, const GivenLogin& given) {
  return Registry(path).Write(
      {{given.origin, kName, given.login.name}, {given.origin, kPassword, given.login.password}});
}

}  // namespace feedloom
