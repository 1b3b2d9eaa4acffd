#include "shell/PaneSizes.h"

#include <utility>

#include "controls/VxSplitter.h"

namespace feedloom {
namespace {

constexpr int kLeftMinimumWidth = 251;  // pixels
constexpr int kTopHeight = 200;
// The smallest sizes that leave room for the toolbar's controls and a few rows.
constexpr QSize kSmallestList(330, 130);
constexpr QSize kSmallestBrowser(330, 150);
// Of the list beside the page. With it the tree and the page, too, fit into kRoomForThreeColumns,
// so that the window can become so narrow that the list goes above.
constexpr int kSmallestBeside = 220;
// Narrower, the page beside the list would have lines of a few words.
constexpr int kRoomForThreeColumns = 980;
constexpr int kRest = 1 << 16;  // more than any window has: the splitter cuts it down

// The parts' shares of what the splitter has, and of what it gets more.
void Share(VxSplitter& splitter, int first, int second) {
  splitter.setStretchFactor(0, first);
  splitter.setStretchFactor(1, second);
  splitter.setSizes({first * kRest, second * kRest});
}

void GiveFirst(VxSplitter& splitter, int pixels) {
  splitter.setStretchFactor(0, 0);
  splitter.setStretchFactor(1, 1);
  splitter.setSizes({pixels, kRest});
}

}  // namespace

PaneSizes::PaneSizes(VxSplitter& columns, VxSplitter& rows,
                     std::function<void(bool isBeside)> onPlaced)
    : columns_(columns), rows_(rows), onPlaced_(std::move(onPlaced)) {
  columns.setChildrenCollapsible(false);
  rows.setChildrenCollapsible(false);
  columns.widget(0)->setMinimumWidth(kLeftMinimumWidth);
  FollowDividers();
}

void PaneSizes::FollowDividers() {
  connect(&columns_, &QSplitter::splitterMoved, this,
          [this] { wished_.leftWidth = columns_.sizes().front(); });
  connect(&rows_, &QSplitter::splitterMoved, this, [this] {
    (place_ == ListPlace::Beside ? wished_.listWidth : wished_.listHeight) = rows_.sizes().front();
  });
}

void PaneSizes::Recall(const PaneMemory& memory) {
  wished_ = memory;
  GiveFirst(columns_, memory.leftWidth > 0 ? memory.leftWidth : kLeftMinimumWidth);
}

void PaneSizes::PlaceList(ListPlace wanted) {
  wanted_ = wanted;
  const bool isTooNarrow = columns_.width() < kRoomForThreeColumns;
  const auto place = wanted == ListPlace::Beside && isTooNarrow ? ListPlace::Above : wanted;
  if (std::exchange(place_, place) == place) return;
  Place(place);
  onPlaced_(place == ListPlace::Beside);
}

void PaneSizes::Place(ListPlace place) {
  const bool isBeside = place == ListPlace::Beside;
  rows_.widget(0)->setMinimumSize(isBeside ? QSize(kSmallestBeside, 0) : kSmallestList);
  rows_.widget(1)->setMinimumSize(isBeside ? QSize(kSmallestBrowser.width(), 0) : kSmallestBrowser);
  rows_.setOrientation(isBeside ? Qt::Horizontal : Qt::Vertical);
  const int wished = isBeside ? wished_.listWidth : wished_.listHeight;
  if (wished > 0) return GiveFirst(rows_, wished);
  if (place == ListPlace::Default) return GiveFirst(rows_, kTopHeight);
  isBeside ? Share(rows_, 2, 3) : Share(rows_, 1, 2);
}

}  // namespace feedloom
