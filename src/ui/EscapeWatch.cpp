#include "ui/EscapeWatch.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

namespace feedloom {

void EscapeWatch::Start() { qApp->installEventFilter(this); }

void EscapeWatch::Stop() { qApp->removeEventFilter(this); }

// An event filter instead of a shortcut: the browser has a shortcut for Escape, and Qt runs neither
// of two shortcuts for one key.
bool EscapeWatch::eventFilter(QObject* watched, QEvent* event) {
  const bool isPress = event->type() == QEvent::KeyPress;
  if (!isPress && event->type() != QEvent::ShortcutOverride) return false;
  const auto& key = static_cast<const QKeyEvent&>(*event);
  const auto* const widget = qobject_cast<QWidget*>(watched);
  if (key.key() != Qt::Key_Escape || !widget || widget->window() != widget_.window()) return false;
  event->accept();  // an accepted ShortcutOverride makes Qt send the key press
  // An auto-repeated Escape was pressed for a message box that has just closed.
  if (isPress && !key.isAutoRepeat()) onEscape_();
  return true;
}

}  // namespace feedloom
