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
  isFailureShown_ = false;
  text_ = text;
  Send();
}

void StatusLine::ReportPage(std::string_view text, bool hasEnded) {
  if (!isFailureShown_) return Report(text);
  if (hasEnded && isTreeRead_) isFailureShown_ = false;
}

void StatusLine::ReportFailure(std::string_view text) {
  if (!isTreeRead_ && std::exchange(startFailure_, text) == text) return;
  Report(text);
  isFailureShown_ = true;
}

void StatusLine::ClearFailure() {
  if (isFailureShown_) Report("");
}

void StatusLine::Send() {
  SendToWindow(frame_.parentWidget(), kMessageShowText, 0, reinterpret_cast<std::intptr_t>(&text_));
}

}  // namespace feedloom
