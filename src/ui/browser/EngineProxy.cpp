#include "ui/browser/EngineProxy.h"

#include <QByteArray>
#include <algorithm>
#include <cctype>

#include "net/ProxySettings.h"

namespace feedloom {
namespace {

constexpr char kOptions[] = "QTWEBENGINE_CHROMIUM_FLAGS";

// The options are separated by blanks, and may be quoted.
bool IsSafe(const std::string& field) {
  return std::ranges::all_of(field, [](unsigned char c) {
    return std::isalnum(c) != 0 ||
           std::string_view(".:=*<>/_-[]@%").find(static_cast<char>(c)) != std::string_view::npos;
  });
}

// A name stands for its subdomains, too.
std::string ExceptionFor(const std::string& field) {
  if (field == "<local>") return "<local>;localhost;127.0.0.1";
  const bool isName = field.find_first_of("*:/<") == std::string::npos &&
                      field.find_first_not_of("0123456789.") != std::string::npos;
  return isName ? field + ";*." + field : field;
}

}  // namespace

std::string EngineProxyOptions(const ProxySettings& settings) {
  std::string servers;
  for (std::string field : ProxyFields(settings.server)) {
    std::erase(field, ' ');
    if (IsSafe(field)) servers += (servers.empty() ? "" : ";") + field;
  }
  if (!settings.enabled || servers.empty()) return "";
  std::string exceptions = "<-loopback>";  // else the engine would never use it for this machine
  for (const std::string& field : ProxyFields(settings.bypass))
    if (IsSafe(field)) exceptions += ";" + ExceptionFor(field);
  return "--proxy-server=" + servers + " --proxy-bypass-list=" + exceptions;
}

void UseProxyInEngine(const ProxySettings& settings) {
  static const QByteArray others = qgetenv(kOptions);
  const std::string options = EngineProxyOptions(settings);
  if (options.empty()) return;
  qputenv(kOptions, others.isEmpty() ? QByteArray::fromStdString(options)
                                     : others + ' ' + QByteArray::fromStdString(options));
}

}  // namespace feedloom
