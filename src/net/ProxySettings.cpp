#include "net/ProxySettings.h"

#include <fnmatch.h>

#include <algorithm>

#include "text/Text.h"

namespace feedloom {
namespace {

constexpr const char* kKey =
    R"(HKEY_CURRENT_USER\Software\Microsoft\Windows\CurrentVersion\Internet Settings)";

// Whether `host` fits `field`, an exception to the proxy.
bool Fits(const std::string& host, const std::string& field) {
  if (host.empty()) return false;
  if (EqualsIgnoringAsciiCase(field, "<local>")) return host.find('.') == std::string::npos;
  return field.find('*') != std::string::npos &&
         fnmatch(field.c_str(), host.c_str(), FNM_CASEFOLD | FNM_NOESCAPE) == 0;
}

// "127.*" as "127.0.0.0/8"; any other text as it is.
std::string AddressBlock(const std::string& field) {
  constexpr long kBits = 8;
  constexpr long kMostParts = 3;
  if (!field.ends_with(".*")) return field;
  std::string block = field.substr(0, field.size() - 2);
  const long parts = std::ranges::count(block, '.') + 1;
  if (block.find_first_not_of("0123456789.") != std::string::npos || parts > kMostParts) {
    return field;
  }
  for (long i = parts; i <= kMostParts; ++i) block += ".0";
  return block + "/" + std::to_string(parts * kBits);
}

// The exception `field` in the library's own form.
std::string DirectHost(const std::string& field) {
  // "<local>" stands for names without a dot. The library cannot express that, so only the machine
  // itself is listed.
  if (EqualsIgnoringAsciiCase(field, "<local>")) return "localhost,127.0.0.1";
  const bool hasWildcard = field.size() > 1 && field.starts_with('*');
  return hasWildcard ? field.substr(1) : AddressBlock(field);
}

}  // namespace

ProxySettings ReadProxySettings(const Registry& registry) {
  if (registry.ReadDword(kKey, "ProxyEnable").value_or(0) == 0) return {};
  return {true, registry.ReadString(kKey, "ProxyServer").value_or(""),
          registry.ReadString(kKey, "ProxyOverride").value_or("")};
}

std::vector<std::string> ProxyFields(std::string_view list) {
  std::vector<std::string> fields;
  while (!list.empty()) {
    const auto end = list.find(';');
    const std::string_view field = Trim(list.substr(0, end));
    if (!field.empty()) fields.emplace_back(field);
    list.remove_prefix(end == std::string_view::npos ? list.size() : end + 1);
  }
  return fields;
}

std::string ProxyFor(const ProxySettings& settings, std::string_view scheme) {
  if (!settings.enabled) return "";
  for (const std::string& field : ProxyFields(settings.server)) {
    const auto equals = field.find('=');
    if (equals == std::string::npos) return field;
    const std::string_view text = field;
    if (EqualsIgnoringAsciiCase(Trim(text.substr(0, equals)), scheme)) {
      return std::string(Trim(text.substr(equals + 1)));
    }
  }
  return "";
}

std::string DirectHosts(const ProxySettings& settings, const std::string& host) {
  std::string hosts;
  for (const std::string& field : ProxyFields(settings.bypass)) {
    if (!hosts.empty()) hosts += ',';
    hosts += DirectHost(field);
    if (Fits(host, field) && field != "*") hosts += ',' + host;
  }
  return hosts;
}

}  // namespace feedloom
