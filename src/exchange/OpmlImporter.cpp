#include "exchange/OpmlImporter.h"

#include "platform/ThreadPriority.h"

namespace feedloom {
namespace {

// News for the owner's thread: the rows go there as copies.
ImportNews Forwarded(const ImportNews& news, const BackgroundJobs::Tell& tell) {
  return {
      .onFolder =
          [&](const FolderRow& folder) { tell([hear = news.onFolder, folder] { hear(folder); }); },
      .onChannel =
          [&](const ChannelRow& channel) {
            tell([hear = news.onChannel, channel] { hear(channel); });
          }};
}

}  // namespace

void OpmlImporter::Start(const ListSource& source, NameClash clash, ImportReceiver receiver) {
  jobs_.Start([services = services_, source, clash, receiver = std::move(receiver)](
                  const std::stop_token& stop, const BackgroundJobs::Tell& tell) {
    LowerThreadPriority();
    ReadList list = ReadSubscriptions(*services, source, stop);
    ImportEnd end{.sums = std::nullopt, .error = std::move(list.error)};
    if (list.plan) {
      end.sums = AddSubscriptions(*services->store, *list.plan, clash,
                                  Forwarded(receiver.news, tell), stop);
    }
    tell([onEnd = receiver.onEnd, end] { onEnd(end); });
  });
}

}  // namespace feedloom
