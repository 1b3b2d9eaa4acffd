#include "ui/CommandKeys.h"

#include <QShortcut>
#include <algorithm>
#include <map>

#include "controls/OnKey.h"

namespace feedloom {
namespace {

// A menu's command for one kind of row has the keys of the command for whatever is selected.
int WithKeys(int command) {
  static const std::map<int, int> kSame = {{kCommandRefreshGroup, kCommandRefreshSelection},
                                           {kCommandRefreshChannel, kCommandRefreshSelection},
                                           {kCommandDeleteGroup, kCommandDeleteSelection},
                                           {kCommandDeleteChild, kCommandDeleteSelection},
                                           {kCommandDelete, kCommandDeleteSelection},
                                           {kCommandMarkRead, kCommandToggleRead},
                                           {kCommandMarkUnread, kCommandToggleRead}};
  const auto found = kSame.find(command);
  return found == kSame.end() ? command : found->second;
}

const KeyRow* RowOf(int command) {
  for (const KeyGroup& group : KeyTable()) {
    const auto row = std::ranges::find(group.rows, WithKeys(command), &KeyRow::command);
    if (row != group.rows.end()) return &*row;
  }
  return nullptr;
}

}  // namespace

QList<QKeySequence> KeysOf(int command) {
  const KeyRow* const row = RowOf(command);
  return row != nullptr ? row->keys : QList<QKeySequence>();
}

void OnKeysOf(int command, QWidget& widget, const std::function<void()>& run,
              Qt::ShortcutContext where) {
  const KeyRow* const row = RowOf(command);
  if (row == nullptr) return;
  for (const QKeySequence& key : row->keys) {
    OnKey(widget, key, run, where).setAutoRepeat(row->repeats);
  }
}

}  // namespace feedloom
