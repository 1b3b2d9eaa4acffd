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

void OpmlImporter::Start(const ListSource& source, NameClash clash, ImportReceiver receiver) {
  const auto onRefusal = [onEnd = receiver.onEnd] {
    onEnd({.sums = std::nullopt, .error = kThreadRefused});
  };
  const auto job = [services = services_, source, clash, receiver = std::move(receiver)](
                       const std::stop_token& stop, const BackgroundJobs::Tell& tell) {
    LowerThreadPriority();
    ReadList list = ReadSubscriptions(*services, source, stop);
    ImportEnd end{.sums = std::nullopt, .error = std::move(list.error)};
    if (list.plan) {
      end.sums = AddSubscriptions(*services->store, *list.plan, clash,
                                  ForwardingNews(receiver.news, tell), stop);
    }
    tell([onEnd = receiver.onEnd, end] { onEnd(end); });
  };
  jobs_.Start(job, onRefusal);
}

}  // namespace feedloom
