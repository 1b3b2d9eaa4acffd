#include "shell/FrameCommands.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QPointer>
#include <functional>
#include <utility>

#include "ui/CommandKeys.h"
#include "ui/Desk.h"
#include "ui/browser/CRSS_RightBottomContainer.h"
#include "ui/dialogs/KeySheet.h"
#include "ui/list/CRSS_RightTopContainer.h"
#include "ui/tree/CRSS_LeftContainer.h"

namespace feedloom {

// A combo box finds its entries by their first letters.
bool IsForFocus(const QKeyEvent& key) {
  const QWidget* const focus = QApplication::focusWidget();
  const bool isText = !(key.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) &&
                      !key.text().isEmpty() && key.text().front().isPrint();
  if (focus == nullptr || !isText) return false;
  if (qobject_cast<const QAbstractButton*>(focus)) return key.key() == Qt::Key_Space;
  return qobject_cast<const QComboBox*>(focus) || focus->inputMethodQuery(Qt::ImEnabled).toBool();
}

FrameCommands::FrameCommands(QWidget& frame, const Desk& desk, const Panes& panes)
    : QObject(&frame), panes_(panes) {
  const std::pair<int, std::function<void()>> commands[] = {
      {kCommandNextUnread, [this] { GoToUnread(true); }},
      {kCommandPreviousUnread, [this] { GoToUnread(false); }},
      {kCommandScreenOn, [this] { ScrollOn(); }},
      {kCommandScreenBack, [this] { panes_.page.ScrollScreen(false, [](bool) {}); }},
      {kCommandDeleteSelection, [this] { Delete(); }},
      {kCommandKeySheet, [&desk, &frame] { ShowKeySheet(desk.GetSkin(), &frame); }}};
  for (const auto& [command, run] : commands) OnKeysOf(command, frame, run);
  for (const int command :
       {kCommandUndo, kCommandRefreshSelection, kCommandRefreshAll, kCommandUnreadOnly}) {
    OnKeysOf(command, frame, [this, command] { panes_.left.Run(command); });
  }
  for (const int command : {kCommandToggleRead, kCommandScrap}) {
    OnKeysOf(command, frame, [this, command] { panes_.list.Run(command); });
  }
  for (const int command :
       {kCommandOpenPost, kCommandPrint, kCommandZoomIn, kCommandZoomOut, kCommandZoomNormal,
        kCommandGoBack, kCommandGoForward, kCommandFocusAddress}) {
    OnKeysOf(command, frame, [this, command] { panes_.page.RunCommand(command); });
  }
}

// The row to which keys have come is listed first, or its posts would be passed over.
void FrameCommands::GoToUnread(bool forward) {
  panes_.left.Settle();
  panes_.list.GoToUnread(forward);
}

void FrameCommands::ScrollOn() {
  panes_.left.Settle();
  panes_.page.ScrollScreen(true, [self = QPointer(this)](bool hasMoved) {
    if (self && !hasMoved) self->GoToUnread(true);
  });
}

void FrameCommands::Delete() {
  const bool isInTree = panes_.left.isAncestorOf(QApplication::focusWidget());
  isInTree ? panes_.left.Run(kCommandDeleteSelection) : panes_.list.Run(kCommandDelete);
}

}  // namespace feedloom
