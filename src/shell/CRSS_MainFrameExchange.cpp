// The part of CRSS_MainFrame that exports and imports subscriptions.
#include <utility>

#include "exchange/DirectorySearch.h"
#include "exchange/OpmlExport.h"
#include "exchange/OpmlImporter.h"
#include "platform/Messages.h"
#include "shell/CRSS_MainFrame.h"
#include "skin/FilledTexts.h"
#include "skin/Keys.h"
#include "ui/InterfaceThread.h"
#include "ui/tree/CRSS_LeftContainer.h"

namespace feedloom {

std::optional<int> CRSS_MainFrame::ExportOpml(const std::string& path) {
  if (!isTreeRead_) {
    ReportExchangeFailure(kTextOpmlExportError, startFailure_);
    return std::nullopt;
  }
  const SubscriptionList list = left_->Subscriptions();
  if (const Failure failure = WriteOpml(*store_, path, list)) {
    ReportExchangeFailure(kTextOpmlExportError, store_->TextCodePage().FromUtf8(*failure));
    return std::nullopt;
  }
  return CountChannels(list);
}

// `reason` is in the module's code page.
void CRSS_MainFrame::ReportExchangeFailure(const char* textKey, const std::string& reason) {
  ReportMessage(WithTitle(skin_.GetText(kSectionTexts, textKey), reason));
}

void CRSS_MainFrame::ImportOpml(const ListSource& source) {
  if (!importer_) return;
  if (!isTreeRead_) return ReportExchangeFailure(kTextOpmlNotImported, startFailure_);
  ReportMessage(skin_.GetText(kSectionTexts, kTextOpmlImporting));
  Import(source, NameClash::Rename, [this](const ImportEnd& end) {
    ReportImport(end);
    OnMessage(kMessageListImported, end.sums ? 0 : -1, 0);
  });
}

// After a failure of the store nothing is reported: the store's own message stays on display.
void CRSS_MainFrame::ReportImport(const ImportEnd& end) {
  if (!end.sums) {
    ReportExchangeFailure(kTextOpmlNotImported, store_->TextCodePage().FromUtf8(end.error));
  } else if (end.sums->isComplete) {
    ReportMessage(WithNumbers(skin_.GetText(kSectionTexts, kTextOpmlImported),
                              {end.sums->added, end.sums->present, end.sums->leftOut}));
  }
}

void CRSS_MainFrame::MergeOpml(const std::string& path,
                               std::function<void(const std::optional<ImportSums>&)> onEnd) {
  if (!importer_ || !isTreeRead_) return onEnd(std::nullopt);
  Import({.place = path}, NameClash::Merge, [this, onEnd = std::move(onEnd)](const ImportEnd& end) {
    StartRefresh();
    onEnd(end.sums && end.sums->isComplete ? end.sums : std::nullopt);
  });
}

// Each channel is queued for a refresh as soon as its row is shown, because a channel in the queue
// cannot be deleted. Queued later, it could be refreshed after the user has deleted it.
void CRSS_MainFrame::Import(const ListSource& source, NameClash clash,
                            std::function<void(const ImportEnd&)> onEnd) {
  importer_->Start(source, clash,
                   {.news = {.onFolder = [this](const auto& folder) { FolderWasAdded(folder); },
                             .onChannel =
                                 [this](const ChannelRow& channel) {
                                   ChannelWasAdded(channel);
                                   QueueRefresh({EntryFor(channel)});
                                 }},
                    .onEnd = std::move(onEnd)});
}

void CRSS_MainFrame::OnListImported(bool isRead) {
  if (isRead) return StartRefresh();
  ShowTextMessage(kSectionTexts, kTextOpmlError, MsgBoxKind::Notice);
}

std::unique_ptr<DirectorySearch> CRSS_MainFrame::MakeDirectorySearch() {
  return std::make_unique<DirectorySearch>(
      services_, skin_.GetText(kSectionTexts, kTextDirectoryService),
      [thread = interfaceThread_](auto work) { thread->Queue(std::move(work)); });
}

}  // namespace feedloom
