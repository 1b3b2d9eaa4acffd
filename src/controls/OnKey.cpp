#include "controls/OnKey.h"

#include <QShortcut>
#include <QWidget>
#include <utility>

namespace feedloom {

QShortcut& OnKey(QWidget& widget, const QKeySequence& key, std::function<void()> run,
                 Qt::ShortcutContext where) {
  auto* const shortcut = new QShortcut(key, &widget);
  shortcut->setContext(where);
  QObject::connect(shortcut, &QShortcut::activated, &widget, std::move(run));
  return *shortcut;
}

}  // namespace feedloom
