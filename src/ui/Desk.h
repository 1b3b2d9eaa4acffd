// What every pane and dialog needs of the frame that contains it.
#pragma once

#include <string>
#include <string_view>

#include "controls/CMsgBox.h"
#include "skin/Keys.h"
#include "skin/Skin.h"
#include "store/Store.h"
#include "threads/BackgroundJobs.h"
#include "ui/SharedState.h"

namespace feedloom {

class UndoableSteps;

// Interface thread only. Texts are in the module's code page.
class Desk {
 public:
  virtual ~Desk() = default;

  virtual Store& GetStore() = 0;
  virtual const Skin& GetSkin() const = 0;
  virtual SharedState& State() = 0;
  // Queues work for the interface thread; any thread may call the function, also when the frame has
  // gone.
  virtual BackgroundJobs::Post ToInterfaceThread() = 0;
  // Deletions and markings that the user can undo.
  virtual UndoableSteps& Steps() = 0;

  // Passes a status text to the host, which shows it.
  virtual void ReportMessage(std::string_view text) = 0;
  // Passes a status text that tells how far a page has come, the last one of a page with
  // `hasEnded`. It does not replace a failure of the store: that stays on display until the page
  // has ended, or as long as the tree cannot be read.
  virtual void ReportPage(std::string_view text, bool hasEnded) = 0;
  // Tells the host that the status text which was passed last is of a failure.
  virtual void MarkFailure() = 0;
  // Shows the host's text with this section and key in a message box and waits for the answer. The
  // frame may be destroyed meanwhile; the answer is then Declined.
  virtual MsgBoxAnswer ShowTextMessage(const char* section, const char* key, MsgBoxKind kind) = 0;
  // As ShowTextMessage with a question of the module's section; `more` stands below it.
  virtual MsgBoxAnswer Ask(const char* key, std::string_view more, MsgBoxKind kind) = 0;
};

// Reports the host's text with this key of the module's section; does nothing when it has none.
inline void TellText(Desk& desk, const char* key) {
  const std::string text = desk.GetSkin().GetText(kSectionTexts, key);
  if (!text.empty()) desk.ReportMessage(text);
}

}  // namespace feedloom
