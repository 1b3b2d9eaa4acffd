// The room around the controls of the pane's bars, in pixels.
#pragma once

namespace feedloom {

inline constexpr int kBarEdge = 8;            // left and right of the controls
inline constexpr int kBarVerticalMargin = 3;  // above and below them
inline constexpr int kBarGap = 4;             // between them

}  // namespace feedloom
