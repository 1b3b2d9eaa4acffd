// The part of CRSS_MainFrame that lets subscriptions out and in.
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
  const SubscriptionList list = left_->Subscriptions();
  if (const Failure failure = WriteOpml(*store_, path, list)) {
    ReportMessage(WithTitle(skin_.GetText(kSectionTexts, kTextOpmlExportError),
                            store_->TextCodePage().FromUtf8(*failure)));
    return std::nullopt;
  }
  return CountChannels(list);
}

void CRSS_MainFrame::ImportOpml(const ListSource& source) {
  if (!importer_) return;
  ReportMessage(skin_.GetText(kSectionTexts, kTextOpmlImporting));
  Import(source, NameClash::Rename, [this](const ImportEnd& end) {
    ReportImport(end);
    OnMessage(kMessageListImported, end.sums ? 0 : -1, 0);
  });
}

// When the store has failed, what it has reported is to stay.
void CRSS_MainFrame::ReportImport(const ImportEnd& end) {
  if (!end.sums) {
    ReportMessage(WithTitle(skin_.GetText(kSectionTexts, kTextOpmlNotImported),
                            store_->TextCodePage().FromUtf8(end.error)));
  } else if (end.sums->isComplete) {
    ReportMessage(WithNumbers(skin_.GetText(kSectionTexts, kTextOpmlImported),
                              {end.sums->added, end.sums->present, end.sums->leftOut}));
  }
}

void CRSS_MainFrame::MergeOpml(const std::string& path,
                               std::function<void(const std::optional<ImportSums>&)> onEnd) {
  if (!importer_) return onEnd(std::nullopt);
  Import({.place = path}, NameClash::Merge, [this, onEnd = std::move(onEnd)](const ImportEnd& end) {
    StartRefresh();
    onEnd(end.sums && end.sums->isComplete ? end.sums : std::nullopt);
  });
}

// A channel waits for its refresh as soon as it has its row: until then it could be deleted, and be
// refreshed all the same.
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
      [thread = interfaceThread_](auto work) { thread->Run(std::move(work)); });
}

}  // namespace feedloom
