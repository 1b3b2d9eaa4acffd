#include "fetch/FeedFetch.h"

#include <fmt/core.h>

#include <algorithm>
#include <filesystem>

#include "feed/FeedPeriod.h"
#include "fetch/FaultOf.h"
#include "files/Path.h"
#include "files/TempFile.h"
#include "net/Url.h"
#include "net/UrlDownload.h"

namespace feedloom {
namespace {

constexpr std::string_view kTempPrefix = "Feedloom_tmp";
constexpr std::string_view kTempSuffix = ".xml";

constexpr long kStatusNotModified = 304;
constexpr long kStatusTooManyRequests = 429;
constexpr long kStatusUnavailable = 503;

std::string TempPath(const std::string& workDir, std::string_view middle) {
  return JoinPath(workDir, fmt::format("{}{}{}", kTempPrefix, middle, kTempSuffix));
}

FetchOutcome Failed(TransferResult download) {
  FeedFault fault = FaultOf(download);
  FetchOutcome outcome{
      .result = kDownloadFailed, .parseCode = kParsed, .error = std::move(download.error)};
  outcome.fault = std::move(fault);
  const bool isBusy =
      download.status == kStatusTooManyRequests || download.status == kStatusUnavailable;
  if (isBusy) outcome.retryAfter = download.retryAfter;
  if (!download.wantsLogin) return outcome;
  outcome.result = kLoginWanted;
  outcome.loginServer = UrlOrigin(download.address);
  return outcome;
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

FetchOutcome FetchFeed(const FeedRequest& request, const FetchServices& services,
                       std::stop_token stop, FeedParser& parser) {
  const TempFile file(request.path);
  return FetchFeedFile(request, services, std::move(stop), parser);
}

FetchOutcome FetchFeedFile(const FeedRequest& request, const FetchServices& services,
                           std::stop_token stop, FeedParser& parser) {
  TransferResult download =
      UrlDownloadToFile({.address = services.TextCodePage().ToUtf8(request.address),
                         .known = request.known,
                         .web = ReadWebAccess(services.registry),
                         .login = request.login,
                         .pool = request.pool},
                        request.path, stop);
  if (!download.ok) return Failed(std::move(download));
  FetchOutcome outcome{kChannelRefreshed, kParsed, "", std::move(download.address)};
  outcome.loginIsLost =
      request.login && !KeepHostLogin(HostLoginsPath(services.registry), *request.login);
  outcome.isNew = request.known.AreEmpty() || download.status != kStatusNotModified;
  outcome.movedTo = std::move(download.movedTo);
  if (!outcome.isNew) return outcome;
  outcome.validators = std::move(download.validators);
  outcome.parseCode = parser.Parse(request.path, std::move(stop), outcome.address);
  outcome.error = parser.Error();
  if (outcome.parseCode < 0 || !parser.IsFeed()) {
    outcome.result = kDocumentRefused;
    outcome.fault = FaultOf(parser.Fault());
  }
  outcome.period = std::min(std::max(parser.Period(), download.maxAge), kLongestPeriod);
  return outcome;
}

}  // namespace feedloom
