#pragma once

#include <cstdint>
#include <string>
#include <string_view>

class QWidget;

namespace feedloom {

// Sends a message to a window of the host; does nothing without one. Interface thread.
void SendToWindow(QWidget* window, unsigned number, std::intptr_t wParam, std::intptr_t lParam);

// The status text that the host shows, and which texts may replace a failure of the store. Texts
// are in the module's code page. Interface thread only.
class StatusLine {
 public:
  // The parent widget of `frame` receives the texts.
  explicit StatusLine(const QWidget& frame) : frame_(frame) {}

  void Report(std::string_view text);
  // As Desk::ReportPage.
  void ReportPage(std::string_view text, bool hasEnded);
  // Reports a failure of the store. As long as the tree cannot be read, each try of the start fails
  // for the same reason, which is told once.
  void ReportFailure(std::string_view text);
  // Tells the host that the text which was reported last is of a failure.
  void MarkFailure();
  // Reports what the user has done. As a failure, it stays while the next post is shown.
  void ReportStep(std::string_view text);
  // Tells the host that the step with this name can be undone; an empty one is no longer offered.
  void OfferUndo(const std::string& name);
  // Sends the latest text again.
  void Send();

  // Whether the tree has been read; false at first.
  bool IsTreeRead() const { return isTreeRead_; }
  void SetTreeRead(bool isRead) { isTreeRead_ = isRead; }
  // A refresh begins: its texts may replace what stands there, but for why the tree cannot be read.
  void LetReplace() {
    if (isTreeRead_) isTextKept_ = false;
  }
  // Removes a failure from display.
  void ClearFailure();
  // Why the tree could not be read, as the store has told it last.
  const std::string& StartFailure() const { return startFailure_; }

 private:
  const QWidget& frame_;
  std::string text_;
  std::string startFailure_;
  bool isTextKept_ = false;  // a failure or a step, which the texts of a page do not replace
  bool isTreeRead_ = false;
};

}  // namespace feedloom
