// The keys and the gestures of the mouse: what a menu shows behind a command, what a pane listens
// to, and what the sheet of keys tells. Interface thread only.
#pragma once

#include <QKeySequence>
#include <QList>
#include <functional>
#include <span>
#include <vector>

#include "skin/Labels.h"
#include "ui/Commands.h"

class QWidget;

namespace feedloom {

// A command's keys, the usual one first, or a gesture, and what they do.
struct KeyRow {
  int command = 0;  // 0 for what a view or a control does by itself
  QList<QKeySequence> keys = {};
  const Label* gesture = nullptr;  // set when `keys` is empty
  const Label* deed = nullptr;
  bool repeats = false;  // again and again while the key is held down
};

struct KeyGroup {
  const Label* title;
  std::vector<KeyRow> rows;
};

// All keys and gestures of the window, in the order of the sheet.
std::span<const KeyGroup> KeyTable();

// The keys of a command, the usual one first; empty when it has none.
QList<QKeySequence> KeysOf(int command);

// Calls `run` for each key of `command`; otherwise like OnKey.
void OnKeysOf(int command, QWidget& widget, const std::function<void()>& run,
              Qt::ShortcutContext where = Qt::WidgetWithChildrenShortcut);

}  // namespace feedloom
