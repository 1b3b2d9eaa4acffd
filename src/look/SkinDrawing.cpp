#include "look/SkinDrawing.h"

#include <QPainter>
#include <QWidget>

#include "look/SkinPieces.h"

namespace feedloom {

void DrawSkinFocus(QPainter& painter, const QPalette& palette, const QRect& area, int inset) {
  const double margin = inset + 0.5;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(palette.color(QPalette::Link));
  painter.drawRoundedRect(QRectF(area).adjusted(margin, margin, -margin, -margin), 2, 2);
  painter.restore();
}

void DrawSkinField(QPainter& painter, const QWidget& field, const ThreePieces& pieces) {
  painter.save();
  if (!field.isEnabled()) painter.setOpacity(kDisabledOpacity);
  DrawThreePieces(painter, field.rect(), pieces);
  painter.restore();
  if (field.hasFocus()) DrawSkinFocus(painter, field.palette(), field.rect(), 1);
}

}  // namespace feedloom
