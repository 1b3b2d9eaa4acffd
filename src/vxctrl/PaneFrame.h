// The frame of skin pieces that a pane has around its toolbar and its view.
#pragma once

#include "vxctrl/SkinPieces.h"

namespace feedloom {

struct PaneFrame {
  QColor ground;
  QColor line;      // around the view
  ThreePieces top;  // behind the toolbar
  QPixmap left;
  QPixmap right;
  ThreePieces bottom;
};

// The one of section kSectionLeft, which the upper panes share, and the browser pane's own.
PaneFrame LoadPaneFrame(const Skin& skin);
PaneFrame LoadBrowserPaneFrame(const Skin& skin);

// The part of `pane` that is left for the view below a toolbar of this height.
QRect ViewArea(const QRect& pane, int toolbarHeight);

// Fills `pane`: the ground, the pieces and a line around the view.
void DrawPaneFrame(QPainter& painter, const QRect& pane, int toolbarHeight, const PaneFrame& frame);

}  // namespace feedloom
