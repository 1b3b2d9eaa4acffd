// What the panes and dialogs ask of the frame.
#include <QPointer>
#include <utility>

#include "exchange/DirectorySearch.h"
#include "look/QtText.h"
#include "shell/Arrivals.h"
#include "shell/CRSS_MainFrame.h"
#include "shell/ReadingRetry.h"
#include "shell/SubscriptionExchange.h"
#include "skin/Keys.h"
#include "skin/TextPlaceholders.h"
#include "ui/browser/CRSS_RightBottomContainer.h"
#include "ui/dialogs/Dialogs.h"
#include "ui/list/CRSS_RightTopContainer.h"
#include "ui/tree/CRSS_LeftContainer.h"

namespace feedloom {

MsgBoxAnswer CRSS_MainFrame::ShowTextMessage(const char* section, const char* key,
                                             MsgBoxKind kind) {
  const std::string text = WithLineBreaks(skin_.GetText(section, key));
  return ShowMsgBox(skin_, ToQString(store_->TextCodePage(), text), kind, this);
}

MsgBoxAnswer CRSS_MainFrame::Ask(const char* key, std::string_view more, MsgBoxKind kind) {
  if (more.empty()) return ShowTextMessage(kSectionTexts, key, kind);
  const std::string text = skin_.GetText(kSectionTexts, key) + "$$" + std::string(more);
  return ShowMsgBox(skin_, ToQString(store_->TextCodePage(), WithLineBreaks(text)), kind, this);
}

// While the tree is not read, a new row comes into it by the reading.

void CRSS_MainFrame::FolderWasAdded(const FolderRow& folder) {
  retry_ ? retry_->ReadNow() : left_->AppendFolder(folder);
}

void CRSS_MainFrame::CabinetWasAdded(const CabinetRow& cabinet) {
  retry_ ? retry_->ReadNow() : left_->AppendCabinet(cabinet);
}

void CRSS_MainFrame::ChannelWasAdded(const ChannelRow& channel) {
  retry_ ? retry_->ReadNow() : left_->AppendChannel(channel);
}

void CRSS_MainFrame::ChannelWasMoved(int channelId, int folderId) {
  left_->MoveChannel(channelId, folderId);
}

BackgroundJobs::Post CRSS_MainFrame::ToInterfaceThread() {
  return [thread = interfaceThread_](auto work) { thread->Queue(std::move(work)); };
}

std::unique_ptr<DirectorySearch> CRSS_MainFrame::MakeDirectorySearch() {
  return std::make_unique<DirectorySearch>(
      services_, skin_.GetText(kSectionTexts, kTextDirectoryService), ToInterfaceThread());
}

std::optional<int> CRSS_MainFrame::ExportOpml(const std::string& path) {
  if (exchange_ && CanExchange()) return exchange_->Export(path, left_->Subscriptions());
  ReportExchangeFailure(*this, kTextOpmlExportError, status_.StartFailure());
  return std::nullopt;
}

void CRSS_MainFrame::ImportOpml(const ListSource& source) {
  if (!exchange_) return;
  if (!CanExchange()) {
    return ReportExchangeFailure(*this, kTextOpmlNotImported, status_.StartFailure());
  }
  exchange_->Import(source, [this](const std::optional<ImportSums>& sums) {
    const QPointer self(this);
    OnMessage(kMessageListImported, sums ? 0 : -1, 0);
    if (self && sums) ShowLeftOut(*this, this, *sums);
  });
}

void CRSS_MainFrame::EndImport(bool isRead) {
  if (isRead) return refresh_.StartRefresh();
  ShowTextMessage(kSectionTexts, kTextOpmlError, MsgBoxKind::Notice);
}

void CRSS_MainFrame::Synchronise(std::function<void(const SyncEnd&)> onEnd) {
  if (exchange_ && CanExchange()) {
    return exchange_->Synchronise([this] { return left_->Subscriptions(); }, std::move(onEnd));
  }
  ReportExchangeFailure(*this, kTextOpmlExportError, status_.StartFailure());
  onEnd({});
}

void CRSS_MainFrame::ListPosts(ListMode mode, PostList list, FirstPost shown) {
  state_.SetListed(mode, list.areSearchResults);
  rightTop_->Fill(std::move(list));
  rightTop_->ShowFirst(shown);
}

void CRSS_MainFrame::RelistPosts(PostList list) {
  // Rows are matched by post id, and saved posts have ids of their own: only a list of the same
  // selection may keep its scroll position.
  const bool isSameList = state_.listShowsSelection;
  state_.SetListed(ListMode::Selection, false);
  isSameList ? rightTop_->Refill(std::move(list)) : rightTop_->Fill(std::move(list));
}

void CRSS_MainFrame::ReloadSelection() {
  state_.listShowsSelection ? left_->ReloadSelection() : rightTop_->Reread({});
}

void CRSS_MainFrame::ShowPost(const PostRow& post) { rightBottom_->ShowPost(post); }

void CRSS_MainFrame::ShowMainPage() {
  rightTop_->SaysEmpty() ? rightBottom_->ShowEmptyPage() : rightBottom_->ShowMainPage();
}

void CRSS_MainFrame::ShowWebPage(const std::string& address) {
  rightBottom_->ShowWebPage(QUrl(QString::fromStdString(address)));
}

void CRSS_MainFrame::AddChannel(const std::string& address) { left_->AddChannel(address); }

void CRSS_MainFrame::GoToUnreadRow(bool forward) { left_->GoToUnreadRow(forward); }

void CRSS_MainFrame::PostWasRead(const PostRow& post, bool isScrapPost) {
  left_->PostWasRead(post, isScrapPost);
}

void CRSS_MainFrame::UnreadPostWasSaved(int cabinetId) { left_->UnreadPostWasSaved(cabinetId); }

void CRSS_MainFrame::ShowUndone(const std::optional<UndoableRow>& row, const PostIds& posts) {
  left_->ShowUndone(row);
  if (!state_.listShowsSelection && !posts.AreEmpty()) rightTop_->Reread(posts);
}

void CRSS_MainFrame::RecountUnread(bool ofScrapPosts) { arrivals_->Recount(ofScrapPosts); }

}  // namespace feedloom
