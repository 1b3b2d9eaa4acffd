#include "shell/PaneSizes.h"

#include "controls/VxSplitter.h"

namespace feedloom {
namespace {

constexpr int kLeftMinimumWidth = 251;  // pixels
constexpr int kTopHeight = 200;
// The smallest sizes that leave room for the toolbar's controls and a few rows.
constexpr QSize kSmallestList(330, 130);
constexpr QSize kSmallestBrowser(330, 150);
constexpr int kSmallestBeside = 150;
constexpr int kRest = 1 << 16;  // more than any window has: the splitter cuts it down
// Narrower, the page beside the list would have lines of a few words.
constexpr int kRoomForThreeColumns = 980;

void Share(VxSplitter& splitter, int first) {
  splitter.setSizes({first, kRest});
  splitter.setStretchFactor(1, 1);
  splitter.setChildrenCollapsible(false);
}

}  // namespace

void SetPaneSizes(VxSplitter& columns, VxSplitter& rows) {
  columns.widget(0)->setMinimumWidth(kLeftMinimumWidth);
  rows.widget(0)->setMinimumSize(kSmallestList);
  rows.widget(1)->setMinimumSize(kSmallestBrowser);
  rows.setChildrenCollapsible(false);
  Share(columns, kLeftMinimumWidth);
}

ListPlace PlaceInWidth(ListPlace wanted, int width) {
  const bool isTooNarrow = wanted == ListPlace::Beside && width < kRoomForThreeColumns;
  return isTooNarrow ? ListPlace::Above : wanted;
}

void PlaceList(VxSplitter& rows, ListPlace place) {
  if (place == ListPlace::Default) return Share(rows, kTopHeight);
  const bool isBeside = place == ListPlace::Beside;
  // Beside each other they must not keep the window from becoming so narrow that they change.
  rows.widget(0)->setMinimumWidth(isBeside ? kSmallestBeside : kSmallestList.width());
  rows.widget(1)->setMinimumWidth(isBeside ? kSmallestBeside : kSmallestBrowser.width());
  rows.setOrientation(isBeside ? Qt::Horizontal : Qt::Vertical);
  rows.setStretchFactor(0, 1);
  rows.setStretchFactor(1, 2);
  rows.setSizes(isBeside ? QList<int>{2 * kRest, 3 * kRest} : QList<int>{kRest, 2 * kRest});
}

}  // namespace feedloom
