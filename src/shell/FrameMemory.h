#pragma once

#include <optional>

#include "files/Registry.h"
#include "ui/ViewMemory.h"

namespace feedloom {

class CRSS_LeftContainer;
class CRSS_RightBottomContainer;
class CRSS_RightTopContainer;
class Desk;
class Reading;
class PaneSizes;

// The frame's panes, and their sizes.
struct FramePanes {
  PaneSizes& sizes;
  CRSS_LeftContainer& left;
  CRSS_RightTopContainer& list;
  CRSS_RightBottomContainer& page;
};

// What the window remembers, from one start to the next in the registry, and between two frames of
// one process in the module. Interface thread only.
class FrameMemory {
 public:
  // Gives the panes, which show nothing yet, the remembered sizes, widths, scope and zoom. All
  // arguments outlive the object. `kept` is what the frame before has kept, and is taken.
  FrameMemory(const FramePanes& panes, Desk& desk, Reading& reading, const Registry& registry,
              std::optional<KeptView>& kept);

  // Whether only what is unread was shown.
  bool IsUnreadOnly() const { return (kept_ ? kept_->view : stored_).isUnreadOnly; }

  // To be called once, when the tree has its rows and the browser its main page: closes groups,
  // and lists and shows again what the frame before showed. Without a frame before, and if the host
  // asks for it, it is what the last start of the program has shown; if that is gone, the first
  // folder with unread posts is listed, and no post shown. Nothing is marked read.
  void TakeUp();

  // Stores what is to be remembered if it is another than at the start, and returns what is to be
  // kept. Nothing, when TakeUp was not called. The list is empty then.
  std::optional<KeptView> Leave();

 private:
  void TakeUpLast();
  void ShowKept(KeptView kept);
  ViewMemory Look() const;

  const FramePanes panes_;
  Desk& desk_;
  Reading& reading_;
  const Registry& registry_;
  std::optional<KeptView> kept_;
  const ViewMemory stored_;
  bool isTakenUp_ = false;
};

}  // namespace feedloom
