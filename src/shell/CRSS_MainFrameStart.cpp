// The part of CRSS_MainFrame that shows what was read of the store at the start, and keeps the
// reason on display while nothing was.
#include <utility>

#include "shell/CRSS_MainFrame.h"
#include "shell/FrameActions.h"
#include "shell/StartContent.h"
#include "ui/InterfaceThread.h"
#include "ui/tree/CRSS_LeftContainer.h"

namespace feedloom {

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
