// The frame of a pane, drawn with images of the skin around its toolbar and its view.
#pragma once

#include "look/SkinPieces.h"

namespace feedloom {

struct PaneFrame {
  QColor ground;
  QColor line;      // the border of the view
  ThreePieces top;  // behind the toolbar
  QPixmap left;
  QPixmap right;
  ThreePieces bottom;
};

// The frame of the upper panes (section kSectionLeft), and that of the browser pane.
PaneFrame LoadPaneFrame(const Skin& skin);
PaneFrame LoadBrowserPaneFrame(const Skin& skin);

// The view's area in `pane`, below a toolbar of this height in pixels.
QRect ViewArea(const QRect& pane, int toolbarHeight);

// Draws the background, the images and the view's border into `pane`.
void DrawPaneFrame(QPainter& painter, const QRect& pane, int toolbarHeight, const PaneFrame& frame);

}  // namespace feedloom
