#include "fetch/SiteIcons.h"

#include <fmt/core.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "fetch/TimeLimit.h"
#include "files/Path.h"
#include "files/WholeFile.h"
#include "net/RequestAddress.h"
#include "net/Url.h"
#include "net/UrlTransfer.h"
#include "text/Text.h"

namespace feedloom {
namespace {

namespace fs = std::filesystem;

constexpr char kFolder[] = "icons";
constexpr char kFirstOfName[] = "HTTP";
constexpr std::size_t kLongestName =
    240;  // of a file, with room for the suffix of an unfinished one

std::string WebOrigin(const std::string& address) {
  const std::string scheme = UrlScheme(address);
  return scheme == "http" || scheme == "https" ? UrlOrigin(address) : "";
}

bool IsPlain(char c) { return IsDigit(c) || (c >= 'A' && c <= 'Z') || c == '-'; }

std::string EscapedName(const std::string& site) {
  std::string name;
  for (const char c : ToUpperAscii(site)) {
    name += IsPlain(c) ? std::string(1, c) : fmt::format("%{:02x}", static_cast<unsigned char>(c));
  }
  return name;
}

bool SetTime(const std::string& path, std::chrono::system_clock::time_point time) {
  std::error_code error;
  fs::last_write_time(path, std::chrono::file_clock::from_sys(time), error);
  return !error;
}

// Returns false when the try cannot be noted: then it must not be made.
bool NoteTry(const std::string& path, std::chrono::system_clock::time_point now) {
  std::error_code ignored;
  fs::create_directory(fs::path(path).parent_path(), ignored);
  return (fs::exists(path, ignored) || !WriteFileWhole(path, "")) && SetTime(path, now);
}

std::string Download(const std::string& address, const FetchServices& services, TransferPool& pool,
                     std::stop_token stop) {
  const TimeLimit limit(services.clock, kIconTimeLimit, std::move(stop));
  std::string sent;
  TransferRequest request{.address = RequestAddress(address),
                          .web = ReadWebAccess(services.registry),
                          .pool = &pool,
                          .sink = [&sent](std::string_view bytes) {
                            sent += bytes;
                            return sent.size() <= kMaxIconBytes;
                          }};
  request.web.loginFile.clear();
  return RunTransfer(request, limit.Token()).ok ? sent : "";
}

}  // namespace

std::string SiteOf(const Channel& channel, CodePage codePage) {
  const std::string feeds = WebOrigin(codePage.ToUtf8(channel.xmlLink));
  const std::string home = WebOrigin(codePage.ToUtf8(channel.htmlLink));
  return feeds.empty() || home.empty() ? feeds : home;
}

std::string SiteIconPath(const std::string& workDir, const std::string& site) {
  const std::string name = EscapedName(site);
  if (workDir.empty() || name.size() > kLongestName) return {};
  return JoinPath(JoinPath(workDir, kFolder), name);
}

bool IsIconDue(const std::string& path, std::chrono::system_clock::time_point now) {
  std::error_code error;
  const auto tried = fs::last_write_time(path, error);
  if (error) return true;
  const auto age = now - std::chrono::file_clock::to_sys(tried);
  return age < age.zero() || age >= kIconPeriod;
}

void AskForIcon(const std::string& address, const std::string& path, const FetchServices& services,
                const IconMaker& make, TransferPool& pool, std::stop_token stop) {
  const auto now = services.clock.Now();
  if (!NoteTry(path, now)) return;
  const std::string sent = Download(address, services, pool, std::move(stop));
  const std::string icon = sent.empty() ? "" : make(sent);
  if (!icon.empty() && !WriteFileWhole(path, icon)) SetTime(path, now);
}

std::string ReadSiteIcon(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::string icon(kMaxIconBytes, '\0');
  file.read(icon.data(), static_cast<std::streamsize>(icon.size()));
  icon.resize(static_cast<std::size_t>(std::max<std::streamsize>(file.gcount(), 0)));
  return icon;
}

void SweepSiteIcons(const std::string& workDir, const std::set<std::string>& kept) {
  std::error_code ignored;
  for (const auto& file : fs::directory_iterator(JoinPath(workDir, kFolder), ignored)) {
    const bool isIcon = file.path().filename().string().starts_with(kFirstOfName);
    if (isIcon && !kept.contains(file.path().string())) fs::remove(file.path(), ignored);
  }
}

}  // namespace feedloom
