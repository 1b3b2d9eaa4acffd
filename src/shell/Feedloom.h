// Everything that a host program needs of the module feedloom.so. docs/host-interface.md has the
// whole contract and a minimal host.
//
// The host loads the module before it makes its application object, calls Create, shows the frame,
// calls DestroyBtn, and may unload it. All of this is done on the interface thread.
#pragma once

#include <QEvent>
#include <cstdint>
#include <string>

#include "threads/Messages.h"

class QWidget;

namespace feedloom {

// A message between the host's window and the module's frame: send it with
// QCoreApplication::sendEvent, receive it in QWidget::event. Both sides get and give it on the
// interface thread.
class WindowMessage : public QEvent {
 public:
  static constexpr Type kType = static_cast<Type>(QEvent::User + 0x5A);

  WindowMessage(unsigned theNumber, std::intptr_t theWParam, std::intptr_t theLParam)
      : QEvent(kType), number(theNumber), wParam(theWParam), lParam(theLParam) {}

  const unsigned number;  // one of Message
  const std::intptr_t wParam;
  const std::intptr_t lParam;
  std::intptr_t result = 0;  // the receiver's answer
};

// Answers with the text, or the skin value, that the host has under a key; empty when it has none.
// Texts are in the module's code page. Called on the interface thread.
using HostCallback = std::string (*)(const char* section, const char* key);

using CreateFunction = QWidget* (*)(HostCallback, HostCallback, QWidget*);
using DestroyBtnFunction = void (*)();

}  // namespace feedloom

#if defined(__GNUC__)
#define FEEDLOOM_EXPORT __attribute__((visibility("default")))
#else
#define FEEDLOOM_EXPORT
#endif

extern "C" {

// Makes the module's frame as a child of `parent`, which gets its messages; its top-level window
// gets those about the refresh. The module owns the frame; the host lays it out and shows it.
// Null when it can't be made: `parent` is null, there is no application object, a frame exists, or
// a callback throws.
FEEDLOOM_EXPORT QWidget* Create(feedloom::HostCallback HostGetText,
                                feedloom::HostCallback HostGetSkinValue, QWidget* parent);

// Destroys the frame and all that the module has open; a refresh that runs is stopped. Posts stored
// so far stay, and a copy of the database is made. Returns within a second; a database of
// more than 200 MB takes longer to copy. Not to be called from the handler of a message that the
// module has sent.
FEEDLOOM_EXPORT void DestroyBtn();
}
