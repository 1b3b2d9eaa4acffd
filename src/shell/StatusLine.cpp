#include "shell/StatusLine.h"

#include <QCoreApplication>
#include <QWidget>
#include <utility>

#include "shell/Feedloom.h"

namespace feedloom {

void SendToWindow(QWidget* window, unsigned number, std::intptr_t wParam, std::intptr_t lParam) {
  WindowMessage message(number, wParam, lParam);
  if (window != nullptr) QCoreApplication::sendEvent(window, &message);
}

void StatusLine::Report(std::string_view text) {
  isTextKept_ = false;
  text_ = text;
  Send();
}

void StatusLine::ReportPage(std::string_view text, bool hasEnded) {
  if (!isTextKept_) return Report(text);
  if (hasEnded && isTreeRead_) isTextKept_ = false;
}

void StatusLine::ReportFailure(std::string_view text) {
  if (!isTreeRead_ && std::exchange(startFailure_, text) == text) return;
  Report(text);
  MarkFailure();
  isTextKept_ = true;
}

void StatusLine::MarkFailure() { SendToWindow(frame_.parentWidget(), kMessageTextIsFailure, 0, 0); }

void StatusLine::ReportStep(std::string_view text) {
  Report(text);
  isTextKept_ = true;
}

void StatusLine::OfferUndo(const std::string& name) {
  SendToWindow(frame_.parentWidget(), kMessageUndoOffered, 0,
               reinterpret_cast<std::intptr_t>(&name));
}

void StatusLine::ClearFailure() {
  if (isTextKept_) Report("");
}

void StatusLine::Send() {
  SendToWindow(frame_.parentWidget(), kMessageShowText, 0, reinterpret_cast<std::intptr_t>(&text_));
}

}  // namespace feedloom
