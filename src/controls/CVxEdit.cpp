#include "controls/CVxEdit.h"

#include <QDragEnterEvent>
#include <QMimeData>
#include <QPainter>
#include <QUrl>
#include <QValidator>
#include <algorithm>
#include <limits>

#include "look/SkinDrawing.h"
#include "skin/Keys.h"

namespace feedloom {
namespace {

constexpr int kWidestShown = 560;

bool BreaksLine(QChar c) {
  return c == '\n' || c == '\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

// Accepts any text, and replaces its line breaks with blanks.
class OneLine : public QValidator {
 public:
  using QValidator::QValidator;

  State validate(QString& text, int& /*cursor*/) const override {
    std::ranges::replace_if(text, BreaksLine, QChar(' '));
    return Acceptable;
  }
};

// The skin's images are the background.
QPalette WithoutGround() {
  QPalette colors;
  colors.setColor(QPalette::Base, Qt::transparent);
  return colors;
}

}  // namespace

CVxEdit::CVxEdit(const Skin& skin, QWidget* parent)
    : QLineEdit(parent),
      pieces_(LoadThreePieces(skin, kSectionControls, kImageEditLeft, kImageEditMiddle,
                              kImageEditRight)) {
  setMaxLength(std::numeric_limits<int>::max());
  setValidator(new OneLine(this));
  if (pieces_.middle.isNull()) return;
  setFrame(false);
  setPalette(WithoutGround());
  setTextMargins(SizeOf(pieces_.left).width(), 0, SizeOf(pieces_.right).width(), 0);
}

void CVxEdit::ShowOnly(const QString& text) {
  setReadOnly(true);
  setFrame(false);
  setPalette(WithoutGround());
  setText(text);
  setCursorPosition(0);
  const int room = fontMetrics().horizontalAdvance(text) + minimumSizeHint().width();
  setMinimumWidth(std::max(minimumWidth(), std::min(room, kWidestShown)));
}

QString CVxEdit::TrimmedText() const {
  const QString all = text();
  const auto isSeen = [](QChar c) { return !c.isSpace() && c.category() != QChar::Other_Format; };
  const auto first = std::ranges::find_if(all, isSeen);
  auto last = all.end();
  while (last != first && !isSeen(last[-1])) --last;
  return all.mid(first - all.begin(), last - first);
}

QSize CVxEdit::sizeHint() const {
  return QLineEdit::sizeHint().expandedTo({0, SizeOf(pieces_.middle).height()});
}

QSize CVxEdit::minimumSizeHint() const {
  return QLineEdit::minimumSizeHint().expandedTo({0, SizeOf(pieces_.middle).height()});
}

void CVxEdit::dragEnterEvent(QDragEnterEvent* event) {
  const QList<QUrl> urls = event->mimeData()->urls();
  const bool areFiles = !urls.isEmpty() && urls.first().isLocalFile();
  areFiles ? event->ignore() : QLineEdit::dragEnterEvent(event);
}

void CVxEdit::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  if (isReadOnly()) {
    if (hasFocus()) DrawSkinFocus(painter, palette(), rect(), 1);
  } else if (!pieces_.middle.isNull()) {
    DrawSkinField(painter, *this, pieces_);
  }
  painter.end();
  QLineEdit::paintEvent(event);
}

}  // namespace feedloom
