// Where the control panel and the controls on its pages stand: the skin's places, with room for
// texts that need more than the skin gave them. Pixels.
#pragma once

#include <QRect>
#include <span>
#include <vector>

namespace feedloom {

struct PagePart {
  QRect place;  // the skin's, in the page; empty when it names none
  QSize least;  // what the control needs to show all of itself
  QSize usual;  // its size when the skin names no place
};

// The rectangles of a page's controls, given in reading order. Each has at least its least size. A
// control grows to the right and down; what stands right of its place (in any row, so that columns
// stay columns) or below it gives way as far as needed. One without a place stands below the one
// before it, and so does one whose place another has already. No two overlap.
std::vector<QRect> ArrangeParts(std::span<const PagePart> parts);

// The upper left corner of a panel of this size: that of `place`, a rectangle of the window
// `host`, or in the middle over the window when its corner is 0,0; inside `screen` in any case.
// `host` and `screen` are in the desktop's coordinates.
QPoint PanelPosition(const QRect& place, const QSize& size, const QRect& host, const QRect& screen);

}  // namespace feedloom
