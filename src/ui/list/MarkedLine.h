#pragma once

#include <QColor>
#include <QFont>
#include <QRect>
#include <QString>
#include <vector>

#include "ui/FoundWords.h"

class QPainter;

namespace feedloom {

// One line of text with marked words.
struct MarkedLine {
  QString text;
  std::vector<FoundWord> words = {};
  QColor colour;      // of the text
  QColor wordColour;  // of the marked words
  QColor wordGround;  // behind them
};

// Draws `line` from the left of `place`, in the middle of its height; cut with an ellipsis where it
// is too long. Interface thread.
void DrawLine(QPainter& painter, const QFont& font, const QRect& place, const MarkedLine& line);

}  // namespace feedloom
