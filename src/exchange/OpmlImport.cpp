#include "exchange/OpmlImport.h"

#include <fmt/core.h>

#include <algorithm>
#include <filesystem>
#include <span>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "exchange/Missing.h"
#include "exchange/OpmlExport.h"
#include "feed/JsonFeed.h"
#include "feed/OwnAddress.h"
#include "fetch/FeedFetch.h"
#include "fetch/TimeLimit.h"
#include "files/TempFile.h"
#include "net/UrlDownload.h"
#include "refresh/RefreshRun.h"
#include "store/ChannelAdder.h"
#include "store/Connection.h"
#include "store/Folders.h"
#include "store/SqlText.h"
#include "xml/XmlDom.h"

namespace feedloom {
namespace {

constexpr std::size_t kBatchSize = 100;  // channels added with one statement

constexpr std::uintmax_t kMaxFileSize = 64u << 20;  // bytes; a download may be as long

// Reading.

ReadList Refused(std::string error) { return {std::nullopt, std::move(error), {}}; }

// The home page of a JSON Feed; empty when the file at `path` is none.
std::string JsonFeedPage(const std::string& path, const FetchServices& services,
                         const std::stop_token& stop) {
  if (!services.isLenient || !LooksLikeJson(path)) return {};
  const JsonFeed feed = ReadJsonFeed(path, services.TextCodePage(), {}, stop);
  return feed.code == kParsed ? feed.header.link : "";
}

ReadList ReadDocument(const std::string& path, const std::string& listName,
                      const FetchServices& services, const std::stop_token& stop) {
  using Status = XmlDocument::LoadStatus;
  XmlDocument document;
  const XmlFaults faults = services.isLenient ? XmlFaults::Mended : XmlFaults::Refused;
  const Status status = document.Load(path, stop, {.most = kMostListMemory}, faults);
  if (status == Status::TooLarge) return Refused("the list is too long");
  if (status == Status::Unreadable) {
    return {std::nullopt, "it cannot be read, or is not well-formed XML",
            JsonFeedPage(path, services, stop)};
  }
  const OpmlReading reading = services.isLenient ? OpmlReading::Lenient : OpmlReading::Strict;
  const auto outlines = ReadOpml(document.Root(), services.TextCodePage(), reading, stop);
  if (!outlines) return {std::nullopt, "this is not OPML", OwnAddress(document.Root())};
  auto plan = PlanImport(*outlines, listName);
  return plan ? ReadList{std::move(plan), {}, {}} : Refused("the list is too long");
}

ReadList ReadListFile(const std::string& path, const FetchServices& services,
                      const std::stop_token& stop) {
  std::error_code failed;
  const std::uintmax_t size = std::filesystem::file_size(path, failed);
  if (failed) return Refused(failed.message());
  if (size > kMaxFileSize) return Refused("the file is too long");
  return ReadDocument(path, services.TextCodePage().FromUtf8(ListName(path)), services, stop);
}

ReadList DownloadList(const std::string& address, const FetchServices& services,
                      std::stop_token stop) {
  const CodePage codePage = services.TextCodePage();
  const TempFile file(ListFilePath(services.workDir));
  const TimeLimit limit(services.clock, RefreshLimits().timeLimit, std::move(stop));
  const TransferResult download = UrlDownloadToFile(
      {.address = codePage.ToUtf8(address), .web = ReadWebAccess(services.registry)}, file.Path(),
      limit.Token());
  ReadList list = download.ok ? ReadDocument(file.Path(), codePage.FromUtf8(ListName(address)),
                                             services, limit.Token())
                              : Refused(download.error);
  return limit.RanOut() ? Refused("it took too long") : list;
}

// Adding.

// The folder names that are taken, and free ones to use instead.
class FolderNames {
 public:
  explicit FolderNames(Store& store) : store_(store) {}

  // Reads the stored folders' names. Returns false after a failure.
  bool Load() {
    std::vector<FolderRow> folders;
    if (!LoadFolderList(store_, folders)) return false;
    for (FolderRow& folder : folders) taken_.insert(std::move(folder.name));
    return true;
  }

  // Returns `name` when it is free, else the first free one of "name-1", "name-2" ...
  std::string FreeName(const std::string& name) {
    std::string candidate = name;
    // A taken name never becomes free, so the search goes on behind the last number.
    for (int& number = lastNumbers_[name]; IsTaken(candidate);) {
      candidate = fmt::format("{}-{}", name, ++number);
    }
    return candidate;
  }

  void Reserve(const std::string& name) { taken_.insert(UnescapeEntities(name)); }

 private:
  // The store keeps names with their entities decoded.
  bool IsTaken(const std::string& name) const { return taken_.contains(UnescapeEntities(name)); }

  Store& store_;
  std::unordered_set<std::string> taken_;
  std::unordered_map<std::string, int> lastNumbers_;
};

class Import {
 public:
  Import(Store& store, NameClash clash, const ImportListener& news, std::stop_token stop)
      : store_(store), clash_(clash), news_(news), stop_(std::move(stop)), names_(store) {}

  ImportSums Run(const ImportPlan& plan) {
    const int wanted = CountChannels(plan.folders);
    sums_.named = plan.named;
    sums_.isComplete =
        clash_ == NameClash::Merge ? Merge(plan.folders) : names_.Load() && AddAll(plan.folders);
    const int missing = wanted - sums_.added - sums_.present;
    sums_.leftOut = plan.leftOut + missing;
    return sums_;
  }

 private:
  bool Merge(const SubscriptionList& folders) {
    const auto there = StoredSubscriptions(store_);
    if (!there) return false;
    const MissingSubscriptions missing = MissingFrom(*there, folders);
    sums_.present = missing.present;
    return names_.Load() && AddAll(missing.folders);
  }

  bool AddAll(const SubscriptionList& folders) {
    return std::ranges::all_of(folders, [this](const SubscriptionFolder& folder) {
      return !stop_.stop_requested() && AddFolderWithChannels(folder);
    });
  }

  bool AddFolderWithChannels(const SubscriptionFolder& folder) {
    const int folderId = FolderFor(folder.name);
    if (folderId <= 0) return false;
    Connection connection(store_);
    ChannelAdder adder(connection, folderId);
    if (!connection || !adder.Load()) return false;
    for (std::span rest(folder.channels); !rest.empty();) {
      const auto batch = rest.first(std::min(rest.size(), kBatchSize));
      if (stop_.stop_requested() || !AddChannels(adder, batch)) return false;
      rest = rest.subspan(batch.size());
    }
    return true;
  }

  // Returns the id of the folder to add to, which is created when needed; 0 or less after a
  // failure.
  int FolderFor(const std::string& name) {
    int id = 0;
    int order = 0;
    if (clash_ == NameClash::Merge && FindFolderByName(store_, name, id, order)) return id;
    std::string freeName;
    do {  // another program may take a free name first
      freeName = names_.FreeName(name);
      names_.Reserve(freeName);
      id = AppendFolder(store_, freeName, order);
    } while (id == 0);
    if (id > 0) news_.onFolder({.name = UnescapeEntities(freeName), .id = id, .order = order});
    return id;
  }

  bool AddChannels(ChannelAdder& adder, std::span<const Channel> channels) {
    std::vector<ChannelRecord> records(channels.size());
    std::ranges::transform(channels, records.begin(),
                           [](const Channel& channel) { return ChannelRecord{channel}; });
    if (!adder.Add(records)) return false;
    for (const ChannelRecord& record : records) {
      ++(record.newlyInserted ? sums_.added : sums_.present);
      if (record.newlyInserted) news_.onChannel(StoredRow(record));
    }
    return true;
  }

  Store& store_;
  const NameClash clash_;
  const ImportListener& news_;
  const std::stop_token stop_;
  FolderNames names_;
  ImportSums sums_;
};

}  // namespace

ReadList ReadSubscriptions(const FetchServices& services, const ListSource& source,
                           std::stop_token stop) {
  return source.isAddress ? DownloadList(source.place, services, std::move(stop))
                          : ReadListFile(source.place, services, std::move(stop));
}

ImportSums AddSubscriptions(Store& store, const ImportPlan& plan, NameClash clash,
                            const ImportListener& news, std::stop_token stop) {
  return Import(store, clash, news, std::move(stop)).Run(plan);
}

}  // namespace feedloom
