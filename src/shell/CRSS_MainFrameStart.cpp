// The part of CRSS_MainFrame that begins its life behind the panes: makes what works for them,
// shows what was read of the store, and keeps the reason on display while nothing was.
#include <utility>

#include "exchange/OpmlImporter.h"
#include "ingest/FeedChecker.h"
#include "shell/Arrivals.h"
#include "shell/CRSS_MainFrame.h"
#include "shell/FrameActions.h"
#include "shell/FrameRefresh.h"
#include "shell/StartContent.h"
#include "ui/InterfaceThread.h"
#include "ui/tree/CRSS_LeftContainer.h"

namespace feedloom {

void CRSS_MainFrame::BeginLife(FirstReading& reading, const WriteMark& mark) {
  SetPreviewMode();
  const auto toHere = [thread = interfaceThread_](auto work) { thread->Queue(std::move(work)); };
  arrivals_ = std::make_unique<Arrivals>(*this, *left_, store_, mark, toHere);
  feedChecker_ = std::make_unique<FeedChecker>(services_, toHere);
  importer_ = std::make_unique<OpmlImporter>(services_, toHere);
  refresh_ = std::make_unique<FrameRefresh>(
      interfaceThread_, services_,
      [this](unsigned number, std::intptr_t wParam, std::intptr_t lParam) {
        return OnMessage(number, wParam, lParam);
      },
      [this](unsigned number, std::intptr_t, std::intptr_t) {
        OnRefreshMessage(number);
        return std::intptr_t{0};
      });
  StartContent start = reading.Finish();
  for (const std::string& failure : reading.Failures()) ReportFailure(failure);
  ShowStart(std::move(start));
}

void CRSS_MainFrame::ShowStart(StartContent start) {
  isTreeRead_ = start.tree.has_value();
  state_.unreadTotal = state_.announcedTotal = isTreeRead_ ? start.unread : -1;
  left_->ShowTree(std::move(start.tree).value_or(TreeContent()));
  if (isTreeRead_) {
    SetExchangeActions(*this, actions_);
  } else {
    RetryStart();
  }
}

void CRSS_MainFrame::RetryStart() {
  retry_ = std::make_unique<StartRetry>(
      store_, settings_, [thread = interfaceThread_](auto work) { thread->Queue(std::move(work)); },
      [this](StartContent start) {
        retry_.reset();
        if (isFailureShown_) ReportMessage("");
        ShowStart(std::move(start));
      });
}

// Each try of the start fails for the same reason, which is told once.
void CRSS_MainFrame::ReportFailure(std::string_view text) {
  if (!isTreeRead_ && std::exchange(startFailure_, text) == text) return;
  ReportMessage(text);
  isFailureShown_ = true;
}

void CRSS_MainFrame::ReportPage(std::string_view text, bool hasEnded) {
  if (!isFailureShown_) return ReportMessage(text);
  if (hasEnded && isTreeRead_) isFailureShown_ = false;
}

}  // namespace feedloom
