#include "ingest/FeedFetch.h"

#include <fmt/core.h>

#include <filesystem>

#include "platform/Path.h"
#include "platform/ProxySettings.h"
#include "platform/TempFile.h"
#include "platform/UrlDownload.h"

namespace feedloom {
namespace {

constexpr std::string_view kTempPrefix = "Feedloom_tmp";
constexpr std::string_view kTempSuffix = ".xml";

std::string TempPath(const std::string& workDir, std::string_view middle) {
  return JoinPath(workDir, fmt::format("{}{}{}", kTempPrefix, middle, kTempSuffix));
}

}  // namespace

std::string WorkerFilePath(const std::string& workDir, int channelId) {
  return TempPath(workDir, fmt::format("{}", channelId));
}

std::string CheckFilePath(const std::string& workDir) { return TempPath(workDir, ""); }

std::string ListFilePath(const std::string& workDir) { return TempPath(workDir, "_list"); }

void SweepTempFiles(const std::string& workDir) {
  std::error_code ignored;
  for (const auto& entry : std::filesystem::directory_iterator(workDir, ignored)) {
    const std::string name = entry.path().filename().string();
    if (name.starts_with(kTempPrefix) && name.ends_with(kTempSuffix)) {
      std::filesystem::remove(entry.path(), ignored);
    }
  }
}

FetchOutcome FetchFeed(const std::string& address, const std::string& path,
                       const IngestServices& services, std::stop_token stop, FeedParser& parser) {
  const TempFile file(path);
  return FetchFeedFile(address, path, services, std::move(stop), parser);
}

FetchOutcome FetchFeedFile(const std::string& address, const std::string& path,
                           const IngestServices& services, std::stop_token stop,
                           FeedParser& parser) {
  TransferResult download = UrlDownloadToFile(services.TextCodePage().ToUtf8(address), path,
                                              ReadProxySettings(services.registry), stop);
  if (!download.ok) return {kDownloadFailed, kParsed, std::move(download.error)};
  const int code = parser.Parse(path, stop);
  const bool isFeed = code >= 0 && parser.IsFeed();
  return {isFeed ? kChannelRefreshed : kDocumentRefused, code, "", std::move(download.address)};
}

}  // namespace feedloom
