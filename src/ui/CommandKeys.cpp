#include "ui/CommandKeys.h"

#include <map>

#include "controls/OnKey.h"

namespace feedloom {

// A menu's command for one kind of row has the key of the command for whatever is selected.
QList<QKeySequence> KeysOf(int command) {
  static const std::map<int, QList<QKeySequence>> kKeys = {
      {kCommandRefreshAll, {Qt::SHIFT | Qt::Key_F5}},
      {kCommandRefreshSelection, {Qt::Key_F5}},
      {kCommandRefreshGroup, {Qt::Key_F5}},
      {kCommandRefreshChannel, {Qt::Key_F5}},
      {kCommandDeleteSelection, {Qt::Key_Delete}},
      {kCommandDeleteGroup, {Qt::Key_Delete}},
      {kCommandDeleteChild, {Qt::Key_Delete}},
      {kCommandDelete, {Qt::Key_Delete}},
      {kCommandUndo, QKeySequence::keyBindings(QKeySequence::Undo)},
      {kCommandFindInPage, QKeySequence::keyBindings(QKeySequence::Find)},
      {kCommandPrint, QKeySequence::keyBindings(QKeySequence::Print)},
      {kCommandZoomIn, QKeySequence::keyBindings(QKeySequence::ZoomIn)},
      {kCommandZoomOut, QKeySequence::keyBindings(QKeySequence::ZoomOut)},
      {kCommandZoomNormal, {Qt::CTRL | Qt::Key_0}}};
  const auto found = kKeys.find(command);
  return found == kKeys.end() ? QList<QKeySequence>() : found->second;
}

void OnKeysOf(int command, QWidget& widget, const std::function<void()>& run,
              Qt::ShortcutContext where) {
  for (const QKeySequence& key : KeysOf(command)) OnKey(widget, key, run, where);
}

}  // namespace feedloom
