#pragma once

#include <QObject>
#include <functional>
#include <optional>

#include "skin/HostConfig.h"
#include "ui/ViewMemory.h"

namespace feedloom {

class VxSplitter;

// How the frame's panes share its room. Interface thread only.
class PaneSizes : public QObject {
 public:
  // `columns` holds the tree and `rows`, which holds the list and the browser; all stand and
  // outlive the object. Sets how small they may become. What the window has more goes to the
  // browser. `onPlaced` is called when the list has been put above or beside the page.
  PaneSizes(VxSplitter& columns, VxSplitter& rows, std::function<void(bool isBeside)> onPlaced);

  // The sizes that the user has chosen: what a small window leaves of the panes is no wish.
  const PaneMemory& Memory() const { return wished_; }
  // Gives the tree this width, and remembers the others for Fit. A size of 0 is the usual one.
  void Recall(const PaneMemory& memory);

  // Puts the list where the host wants it. Beside the page it stands only in a frame in which both
  // have room.
  void PlaceList(ListPlace wanted);
  // The same again, when the frame has another width.
  void Fit() { PlaceList(wanted_); }

 private:
  void FollowDividers();
  void Place(ListPlace place);

  VxSplitter& columns_;
  VxSplitter& rows_;
  const std::function<void(bool isBeside)> onPlaced_;
  PaneMemory wished_;
  ListPlace wanted_ = ListPlace::Default;
  std::optional<ListPlace> place_;
};

}  // namespace feedloom
