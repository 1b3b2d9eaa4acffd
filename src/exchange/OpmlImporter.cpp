#include "exchange/OpmlImporter.h"

#include "threads/ThreadPriority.h"

namespace feedloom {
namespace {

constexpr char kThreadRefused[] = "the system refuses another thread";

// Returns news whose functions call those of `news` on the owner's thread, with copies of the rows.
ImportListener ForwardingNews(const ImportListener& news, const BackgroundJobs::Tell& tell) {
  return {.onFolder =
              [&](const FolderRow& folder) {
                tell([listener = news.onFolder, folder] { listener(folder); });
              },
          .onChannel =
              [&](const ChannelRow& channel) {
                tell([listener = news.onChannel, channel] { listener(channel); });
              }};
}

}  // namespace

void OpmlImporter::Read(const ListSource& source, std::function<void(const ReadList&)> onRead) {
  const auto job = [services = services_, source, onRead](const std::stop_token& stop,
                                                          const BackgroundJobs::Tell& tell) {
    LowerThreadPriority();
    tell([onRead, list = ReadSubscriptions(*services, source, stop)] { onRead(list); });
  };
  jobs_.Start(job, [onRead] { onRead({.plan = std::nullopt, .error = kThreadRefused}); });
}

void OpmlImporter::Add(ImportPlan plan, NameClash clash, ImportReceiver receiver) {
  const auto onRefusal = [onEnd = receiver.onEnd] {
    onEnd({.sums = std::nullopt, .error = kThreadRefused});
  };
  const auto job = [services = services_, plan = std::move(plan), clash,
                    receiver = std::move(receiver)](const std::stop_token& stop,
                                                    const BackgroundJobs::Tell& tell) {
    LowerThreadPriority();
    const ImportSums sums =
        AddSubscriptions(*services->store, plan, clash, ForwardingNews(receiver.news, tell), stop);
    tell([onEnd = receiver.onEnd, sums] { onEnd({.sums = sums, .error = {}}); });
  };
  jobs_.Start(job, onRefusal);
}

}  // namespace feedloom
