#include "shell/PaneSizes.h"

#include "controls/VxSplitter.h"

namespace feedloom {
namespace {

constexpr int kLeftMinimumWidth = 251;  // pixels
constexpr int kTopHeight = 200;
// The smallest sizes that leave room for the toolbar's controls and a few rows.
constexpr QSize kSmallestList(330, 130);
constexpr QSize kSmallestBrowser(330, 150);
constexpr int kRest = 1 << 16;  // more than any window has: the splitter cuts it down

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
  Share(rows, kTopHeight);
  Share(columns, kLeftMinimumWidth);
}

}  // namespace feedloom
