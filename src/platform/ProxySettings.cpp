#include "platform/ProxySettings.h"

#include "platform/Text.h"

namespace feedloom {
namespace {

constexpr const char* kKey =
    R"(HKEY_CURRENT_USER\Software\Microsoft\Windows\CurrentVersion\Internet Settings)";

// Removes the text up to and including the next ";" from `list`. Returns it trimmed, without ";".
std::string_view TakeField(std::string_view& list) {
  const auto end = list.find(';');
  const std::string_view field = Trim(list.substr(0, end));
  list.remove_prefix(end == std::string_view::npos ? list.size() : end + 1);
  return field;
}

}  // namespace

ProxySettings ReadProxySettings(const Registry& registry) {
  if (registry.ReadDword(kKey, "ProxyEnable").value_or(0) == 0) return {};
  return {true, registry.ReadString(kKey, "ProxyServer").value_or(""),
          registry.ReadString(kKey, "ProxyOverride").value_or("")};
}

std::string ProxyFor(const ProxySettings& settings, std::string_view scheme) {
  if (!settings.enabled) return "";
  std::string_view list = settings.server;
  while (!list.empty()) {
    const std::string_view field = TakeField(list);
    const auto equals = field.find('=');
    if (equals == std::string_view::npos) return std::string(field);
    if (EqualsIgnoringAsciiCase(Trim(field.substr(0, equals)), scheme)) {
      return std::string(Trim(field.substr(equals + 1)));
    }
  }
  return "";
}

std::string DirectHosts(const ProxySettings& settings) {
  std::string hosts;
  std::string_view list = settings.bypass;
  while (!list.empty()) {
    std::string_view field = TakeField(list);
    // "<local>" stands for names without a dot. libcurl cannot express that, so only the machine
    // itself is listed.
    if (EqualsIgnoringAsciiCase(field, "<local>")) field = "localhost,127.0.0.1";
    if (field.size() > 1 && field.starts_with('*')) field.remove_prefix(1);
    if (field.empty()) continue;
    if (!hosts.empty()) hosts += ',';
    hosts += field;
  }
  return hosts;
}

}  // namespace feedloom
