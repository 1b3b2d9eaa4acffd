#include "shell/SubscriptionExchange.h"

#include <fmt/core.h>
#include <fmt/ranges.h>

#include <utility>

#include "exchange/Missing.h"
#include "exchange/OpmlExport.h"
#include "feed/WebAddress.h"
#include "skin/Keys.h"
#include "skin/TextPlaceholders.h"
#include "ui/Desk.h"
#include "ui/Refreshing.h"
#include "ui/Subscribing.h"

namespace feedloom {

void ReportExchangeFailure(Desk& desk, const char* textKey, const std::string& reason) {
  desk.ReportMessage(WithTitle(desk.GetSkin().GetText(kSectionTexts, textKey), reason));
}

bool SubscriptionExchange::IsLenient() const { return desk_.GetSkin().Config().ReadsLeniently(); }

std::optional<int> SubscriptionExchange::Export(const std::string& path,
                                                const SubscriptionList& list) {
  Store& store = desk_.GetStore();
  const OpmlExport result = ExportSubscriptions(store, list, IsLenient());
  if (const Failure failure = SaveFile(path, result.opml)) {
    ReportExchangeFailure(desk_, kTextOpmlExportError, store.TextCodePage().FromUtf8(*failure));
    return std::nullopt;
  }
  if (result.check.readsBack) return result.channels;
  ReportUnreadable(result.check);
  return std::nullopt;
}

void SubscriptionExchange::ReportUnreadable(const OpmlCheck& check) {
  const Skin& skin = desk_.GetSkin();
  std::string names = fmt::format("{}", fmt::join(check.first, ", "));
  const int more = check.count - static_cast<int>(check.first.size());
  if (more > 0) names += ", " + WithNumbers(skin.GetText(kSectionTexts, kTextOpmlMore), {more});
  desk_.ReportMessage(WithTitle(
      WithNumbers(skin.GetText(kSectionTexts, kTextOpmlUnreadable), {check.count}), names));
}

void SubscriptionExchange::Import(const ListSource& source,
                                  std::function<void(const std::optional<ImportSums>&)> onEnd) {
  desk_.ReportMessage(desk_.GetSkin().GetText(kSectionTexts, kTextOpmlImporting));
  const auto end = [this, onEnd = std::move(onEnd)](const ImportEnd& result) {
    ReportEnd(result);
    onEnd(result.sums);
  };
  importer_.Read(source, [this, source, end](const ReadList& list) {
    const std::string feed = source.asksFirst ? EscapedAddress(list.feed) : "";
    if (IsWebAddress(feed)) return AddFeed(feed);
    if (!list.plan) return end({.sums = std::nullopt, .error = list.error});
    const std::weak_ptr<const bool> life = life_;
    const auto clash = HowToAdd(source, *list.plan);
    if (life.expired()) return;
    if (clash) return Add(*list.plan, *clash, end);
    desk_.ReportMessage(desk_.GetSkin().GetText(kSectionTexts, kTextOpmlCancelled));
  });
}

// Nothing is imported any more, and nothing has failed.
void SubscriptionExchange::AddFeed(const std::string& address) {
  desk_.ReportMessage("");
  subscribing_.AddChannel(address);
}

std::optional<NameClash> SubscriptionExchange::HowToAdd(const ListSource& source,
                                                        const ImportPlan& plan) {
  const std::string name = source.place.substr(source.place.rfind('/') + 1);
  if (source.asksFirst && !askFirst_(name, CountChannels(plan.folders))) return std::nullopt;
  if (!IsLenient()) return NameClash::Rename;
  const auto there = StoredSubscriptions(desk_.GetStore());
  if (!there || !Overlaps(*there, plan.folders)) return NameClash::Merge;
  return ask_(CountChannels(plan.folders), MissingFrom(*there, plan.folders).present);
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

struct SubscriptionExchange::Synchronisation {
  HandsetLists lists;
  std::function<SubscriptionList()> shown;
  std::function<void(const SyncEnd&)> onEnd;
  SubscriptionList known = {};
};

void SubscriptionExchange::Synchronise(std::function<SubscriptionList()> shown,
                                       std::function<void(const SyncEnd&)> onEnd) {
  Synchronisation run{HandsetLists(desk_.GetSkin().Config().GetWorkDir()), std::move(shown),
                      std::move(onEnd)};
  importer_.Read({.place = run.lists.known}, [this, run](const ReadList& known) mutable {
    if (known.plan) run.known = known.plan->folders;
    if (!HasReceived(run.lists)) return EndSynchronisation(run, run.known, ImportSums());
    importer_.Read({.place = run.lists.received},
                   [this, run](const ReadList& received) { TakeReceived(run, received); });
  });
}

void SubscriptionExchange::TakeReceived(const Synchronisation& run, const ReadList& received) {
  if (!received.plan) return EndSynchronisation(run, run.known, std::nullopt);
  ImportPlan news = *received.plan;
  news.folders = MissingFrom(run.known, news.folders).folders;
  Add(news, NameClash::Merge, [this, run, received](const ImportEnd& end) {
    const bool isTaken = end.sums && end.sums->isComplete;
    EndSynchronisation(run, isTaken ? received.plan->folders : run.known,
                       isTaken ? end.sums : std::nullopt);
    refreshing_.StartRefresh();
  });
}

// The list for the handset is written last, with what has come from it.
void SubscriptionExchange::EndSynchronisation(const Synchronisation& run,
                                              const SubscriptionList& received,
                                              const std::optional<ImportSums>& sums) {
  const SubscriptionList shown = run.shown();
  auto sent = Export(run.lists.sent, shown);
  const CodePage codePage = desk_.GetStore().TextCodePage();
  if (const Failure failure = WriteKnown(run.lists, shown, received, codePage)) {
    ReportExchangeFailure(desk_, kTextOpmlExportError, codePage.FromUtf8(*failure));
    sent.reset();
  }
  run.onEnd({.sent = sent, .received = sums});
}

// Each channel is queued for a refresh as soon as its row is shown, because a channel in the queue
// cannot be deleted. Queued later, it could be refreshed after the user has deleted it.
void SubscriptionExchange::Add(const ImportPlan& plan, NameClash clash,
                               std::function<void(const ImportEnd&)> onEnd) {
  importer_.Add(
      plan, clash,
      {.news = {.onFolder = [this](const auto& folder) { subscribing_.FolderWasAdded(folder); },
                .onChannel =
                    [this](const ChannelRow& channel) {
                      subscribing_.ChannelWasAdded(channel);
                      refreshing_.QueueRefresh({channel});
                    }},
       .onEnd = std::move(onEnd)});
}

}  // namespace feedloom
