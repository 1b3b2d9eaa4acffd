#include "controls/BusyBar.h"

#include <QPainter>

namespace feedloom {
namespace {

constexpr int kRunTime = 1400;  // milliseconds from one end to the other
constexpr int kMarkLength = 4;  // the mark is so many times shorter than the bar

}  // namespace

BusyBar::BusyBar(QWidget* parent) : QProgressBar(parent) {
  setRange(0, 0);
  setTextVisible(false);
  run_.setStartValue(0.0);
  run_.setEndValue(1.0);
  run_.setDuration(kRunTime);
  run_.setLoopCount(-1);
  connect(&run_, &QVariantAnimation::valueChanged, this, [this] { update(); });
}

// The desktop's styles hatch the bar in shades that cannot be told apart when it is thin.
void BusyBar::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const double mark = width() / double{kMarkLength};
  const double left = run_.currentValue().toDouble() * (width() + mark) - mark;
  painter.fillRect(rect(), palette().color(QPalette::Inactive, QPalette::Highlight));
  painter.fillRect(QRectF(left, 0, mark, height()), palette().color(QPalette::Link));
}

void BusyBar::showEvent(QShowEvent* event) {
  QProgressBar::showEvent(event);
  run_.start();
}

void BusyBar::hideEvent(QHideEvent* event) {
  run_.stop();
  QProgressBar::hideEvent(event);
}

}  // namespace feedloom
