#include "ui/list/MarkedLine.h"

#include <QPainter>
#include <QTextLayout>
#include <algorithm>
#include <cmath>

namespace feedloom {
namespace {

// Those of the words that stand in the first `length` characters.
QList<QTextLayout::FormatRange> Formats(const MarkedLine& line, qsizetype length) {
  QTextCharFormat format;
  format.setForeground(line.wordColour);
  format.setBackground(line.wordGround);
  QList<QTextLayout::FormatRange> formats;
  for (const FoundWord& word : line.words) {
    const qsizetype end = std::min(word.end, length);
    if (word.begin < end)
      formats.append({static_cast<int>(word.begin), static_cast<int>(end - word.begin), format});
  }
  return formats;
}

QTextOption OneLine() {
  QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
  option.setWrapMode(QTextOption::NoWrap);
  return option;
}

}  // namespace

void DrawLine(QPainter& painter, const QFont& font, const QRect& place, const MarkedLine& line) {
  const QString shown = QFontMetrics(font).elidedText(line.text, Qt::ElideRight, place.width());
  const qsizetype whole = shown == line.text ? shown.size() : shown.size() - 1;  // an ellipsis
  QTextLayout layout(shown, font);
  layout.setTextOption(OneLine());
  layout.setFormats(Formats(line, whole));
  layout.beginLayout();
  QTextLine row = layout.createLine();
  if (row.isValid()) row.setLineWidth(place.width());
  layout.endLayout();
  const int height = static_cast<int>(std::ceil(layout.boundingRect().height()));
  painter.setPen(line.colour);
  layout.draw(&painter, place.topLeft() + QPoint(0, (place.height() - height) / 2));
}

}  // namespace feedloom
