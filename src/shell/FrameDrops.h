#pragma once

#include <string>

class QDropEvent;
class QEvent;
class QWidget;

namespace feedloom {

class Desk;
class Subscribing;
struct DroppedContent;

// Takes what the user drops on the frame from another program, or drags from a page to another
// pane: an OPML file is imported, an address comes into the dialog that adds a channel; of anything
// else the status text says what may be dropped. Interface thread only.
class FrameDrops {
 public:
  // All outlive the object. `frame` accepts drops from now on.
  FrameDrops(QWidget& frame, Desk& desk, Subscribing& subscribing);

  // To be called with each event of the frame, also with drags over the host's parts of the window.
  // Returns whether it was an event of a drag, which is then handled.
  bool Handle(QEvent& event);

  // Takes what the host hands over, an address in ASCII or an absolute path in the file system's
  // encoding, as if it had been dropped, except that a list is imported after a question only. It
  // comes back before a dialog opens. False, and nothing happens, when it is nothing to take.
  bool TakeHandedOver(const std::string& content);

 private:
  void TakeLater(const DroppedContent& content, bool asksFirst);
  void Take(const DroppedContent& content, bool asksFirst);

  QWidget& frame_;
  Desk& desk_;
  Subscribing& subscribing_;
};

}  // namespace feedloom
