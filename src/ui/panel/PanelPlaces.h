// Layout of the control panel and its pages: the skin's places, enlarged for texts that need more
// space. All values are in pixels.
#pragma once

#include <QRect>
#include <span>
#include <vector>

namespace feedloom {

// A control of a page.
struct PagePart {
  QRect place;  // the skin's place, relative to the page; empty when there is none
  QSize least;  // the minimum size of the control
  QSize usual;  // the size of a control without a place
};

// Returns the rectangles of the controls in `parts`, which are in reading order. Each control has
// at least its minimum size and grows to the right and downwards. Controls to the right of its
// place, in all rows, and below its place are moved as far as necessary, so that columns stay
// aligned. A control without a place, or whose place is taken, is put below the previous one. No
// two overlap. Pure.
std::vector<QRect> ArrangeParts(std::span<const PagePart> parts);

// Returns the upper left corner of the panel with this size: the corner of `place`, relative to the
// window `host`; the panel is centred over the window when that corner is 0,0. The panel is moved
// inside `screen`. `host`, `screen` and the result are in desktop coordinates. Pure.
QPoint PanelPosition(const QRect& place, const QSize& size, const QRect& host, const QRect& screen);

}  // namespace feedloom
