// The keys of commands: what a menu shows behind a command, and what a pane listens to. Interface
// thread only.
#pragma once

#include <QKeySequence>
#include <QList>
#include <functional>

#include "ui/Commands.h"

class QWidget;

namespace feedloom {

// The keys of a command, the usual one first; empty when it has none.
QList<QKeySequence> KeysOf(int command);

// Calls `run` for each key of `command`; otherwise like OnKey.
void OnKeysOf(int command, QWidget& widget, const std::function<void()>& run,
              Qt::ShortcutContext where = Qt::WidgetWithChildrenShortcut);

}  // namespace feedloom
