// What the frame does at the beginning and the end of a refresh.
#include "look/QtText.h"
#include "shell/Arrivals.h"
#include "shell/CRSS_MainFrame.h"
#include "shell/ChannelNotice.h"
#include "shell/MovedChannels.h"
#include "shell/ReadingRetry.h"
#include "shell/RefreshTexts.h"
#include "shell/SiteIconKeeper.h"
#include "shell/SubscriptionExchange.h"
#include "shell/TextIndexer.h"
#include "skin/Keys.h"
#include "skin/TextPlaceholders.h"
#include "ui/tree/CRSS_LeftContainer.h"

namespace feedloom {

void CRSS_MainFrame::StopRefresh() {
  interfaceThread_->Close();
  if (arrivals_) arrivals_->Stop();
  exchange_.reset();
  retry_.reset();
  icons_.reset();
  indexer_.reset();
  refresh_.Stop();
}

void CRSS_MainFrame::EndRefresh() {
  StopRefresh();
  if (hostShowsBusy_) TellHost(kMessageRefreshEnded, 0, 0);
}

void CRSS_MainFrame::OnRunEnded() {
  const RefreshSums sums = refresh_.Sums();
  std::string told = RefreshSumsText(skin_, sums);
  const std::string moved = TellMovedOnce(skin_, registry_, left_->Subscriptions(), refresh_);
  if (!moved.empty()) told += (told.empty() ? "" : ". ") + moved;
  arrivals_->TellAtEnd(std::move(told), sums.failed > 0 || sums.missing > 0);
  arrivals_->OnMessage(kMessageChannelResult, kRunEnded, 0);
  SetRefreshBusy(false);
  if (icons_) icons_->Renew();
  if (channelNotice_) channelNotice_->OnRunEnded(sums.posts);
  news_.OnRunEnded(sums.posts);
}

void CRSS_MainFrame::TellHost(unsigned number, std::intptr_t wParam, std::intptr_t lParam) {
  hostShowsBusy_ = number != kMessageRefreshEnded;
  if (number == kMessageRefreshBegan) {
    SetRefreshBusy(true);
    status_.LetReplace();
  }
  if (number == kMessageRefreshBegan && channelNotice_) channelNotice_->OnRunBegan();
  SendToWindow(window(), number, wParam, lParam);
}

void CRSS_MainFrame::SetRefreshBusy(bool busy) {
  left_->SetBusy(busy);
  busy ? setCursor(Qt::WaitCursor) : unsetCursor();
  // A refresh has the machine for itself; what it brings is indexed behind it.
  if (indexer_) busy ? indexer_->Stop() : indexer_->Start();
}

void CRSS_MainFrame::TellIndexed(int percent) {
  if (percent == 100) return TellText(*this, kTextIndexReady);
  ReportMessage(WithNumbers(skin_.GetText(kSectionTexts, kTextIndexProgress), {percent}));
}

}  // namespace feedloom
