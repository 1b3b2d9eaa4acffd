#pragma once

#include <QKeySequence>
#include <functional>

class QShortcut;
class QWidget;

namespace feedloom {

// Calls `run` when the user presses `key` while `widget`, or one of its children, has the keyboard;
// with another `where`, as the toolkit defines it. Returns the shortcut, which
// goes with `widget` as `run` does. Interface thread.
QShortcut& OnKey(QWidget& widget, const QKeySequence& key, std::function<void()> run,
                 Qt::ShortcutContext where = Qt::WidgetWithChildrenShortcut);

}  // namespace feedloom
