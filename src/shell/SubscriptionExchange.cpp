#include "shell/SubscriptionExchange.h"

#include <utility>

#include "exchange/OpmlExport.h"
#include "skin/Keys.h"
#include "skin/TextPlaceholders.h"
#include "ui/Desk.h"
#include "ui/Refreshing.h"
#include "ui/Subscribing.h"

namespace feedloom {

void ReportExchangeFailure(Desk& desk, const char* textKey, const std::string& reason) {
  desk.ReportMessage(WithTitle(desk.GetSkin().GetText(kSectionTexts, textKey), reason));
}

std::optional<int> SubscriptionExchange::Export(const std::string& path,
                                                const SubscriptionList& list) {
  Store& store = desk_.GetStore();
  if (const Failure failure = WriteOpml(store, path, list)) {
    ReportExchangeFailure(desk_, kTextOpmlExportError, store.TextCodePage().FromUtf8(*failure));
    return std::nullopt;
  }
  return CountChannels(list);
}

void SubscriptionExchange::Import(const ListSource& source,
                                  std::function<void(bool isRead)> onEnd) {
  desk_.ReportMessage(desk_.GetSkin().GetText(kSectionTexts, kTextOpmlImporting));
  Start(source, NameClash::Rename, [this, onEnd = std::move(onEnd)](const ImportEnd& end) {
    ReportEnd(end);
    onEnd(end.sums.has_value());
  });
}

// After a failure of the store nothing is reported: the store's own message stays on display.
void SubscriptionExchange::ReportEnd(const ImportEnd& end) {
  if (!end.sums) {
    ReportExchangeFailure(desk_, kTextOpmlNotImported,
                          desk_.GetStore().TextCodePage().FromUtf8(end.error));
  } else if (end.sums->isComplete) {
    desk_.ReportMessage(WithNumbers(desk_.GetSkin().GetText(kSectionTexts, kTextOpmlImported),
                                    {end.sums->added, end.sums->present, end.sums->leftOut}));
  }
}

void SubscriptionExchange::Merge(const std::string& path,
                                 std::function<void(const std::optional<ImportSums>&)> onEnd) {
  Start({.place = path}, NameClash::Merge, [this, onEnd = std::move(onEnd)](const ImportEnd& end) {
    refreshing_.StartRefresh();
    onEnd(end.sums && end.sums->isComplete ? end.sums : std::nullopt);
  });
}

// Each channel is queued for a refresh as soon as its row is shown, because a channel in the queue
// cannot be deleted. Queued later, it could be refreshed after the user has deleted it.
void SubscriptionExchange::Start(const ListSource& source, NameClash clash,
                                 std::function<void(const ImportEnd&)> onEnd) {
  importer_.Start(
      source, clash,
      {.news = {.onFolder = [this](const auto& folder) { subscribing_.FolderWasAdded(folder); },
                .onChannel =
                    [this](const ChannelRow& channel) {
                      subscribing_.ChannelWasAdded(channel);
                      refreshing_.QueueRefresh({channel});
                    }},
       .onEnd = std::move(onEnd)});
}

}  // namespace feedloom
