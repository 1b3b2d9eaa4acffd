#include "look/PaneFrame.h"

#include <QPainter>

#include "look/SkinPalette.h"
#include "skin/Colors.h"
#include "skin/Keys.h"
#include "skin/Skin.h"

namespace feedloom {
namespace {

// The distance of the view's border from the left, right and bottom edges.
constexpr int kLineInset = 5;

}  // namespace

PaneFrame LoadPaneFrame(const Skin& skin) {
  return {.ground = SkinColor(skin, kColorPaneGround),
          .line = SkinColor(skin, kColorPaneLine),
          .top = LoadThreePieces(skin, kSectionLeft, kImageLeftTopLeft, kImageLeftTopMiddle,
                                 kImageLeftTopRight),
          .left = LoadSkinImage(skin, kSectionLeft, kImageLeftMiddleLeft),
          .right = LoadSkinImage(skin, kSectionLeft, kImageLeftMiddleRight),
          .bottom = LoadThreePieces(skin, kSectionLeft, kImageLeftBottomLeft,
                                    kImageLeftBottomMiddle, kImageLeftBottomRight)};
}

PaneFrame LoadBrowserPaneFrame(const Skin& skin) {
  const auto piece = [&](const char* key) { return LoadSkinImage(skin, kSectionRightBottom, key); };
  return {.ground = SkinColor(skin, kColorPaneGround),
          .line = SkinColor(skin, kColorPaneLine),
          .top = {.left = {}, .middle = piece(kImageFrameTop), .right = {}},
          .left = piece(kImageFrameLeft),
          .right = piece(kImageFrameRight),
          .bottom = LoadThreePieces(skin, kSectionRightBottom, kImageFrameBottomLeft,
                                    kImageFrameBottomMiddle, kImageFrameBottomRight)};
}

QRect ViewArea(const QRect& pane, int toolbarHeight) {
  return pane.adjusted(kLineInset + 1, toolbarHeight + 1, -kLineInset - 1, -kLineInset - 1);
}

void DrawPaneFrame(QPainter& painter, const QRect& pane, int toolbarHeight,
                   const PaneFrame& frame) {
  QRect top = pane;
  top.setHeight(toolbarHeight);
  QRect bottom = pane;
  bottom.setTop(pane.bottom() + 1 - SizeOf(frame.bottom.middle).height());
  QRect left(pane.left(), top.bottom() + 1, SizeOf(frame.left).width(),
             bottom.top() - top.bottom() - 1);
  QRect right = left;
  right.setWidth(SizeOf(frame.right).width());
  right.moveRight(pane.right());

  painter.fillRect(pane, frame.ground);
  DrawThreePieces(painter, top, frame.top);
  painter.drawTiledPixmap(left, frame.left);
  painter.drawTiledPixmap(right, frame.right);
  DrawThreePieces(painter, bottom, frame.bottom);
  painter.setPen(frame.line);
  painter.drawRect(ViewArea(pane, toolbarHeight).adjusted(-1, -1, 0, 0));
}

}  // namespace feedloom
