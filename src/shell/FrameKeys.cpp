#include "shell/FrameKeys.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <algorithm>
#include <utility>

#include "controls/VxSplitter.h"
#include "ui/CommandKeys.h"

namespace feedloom {
namespace {

bool HasKeyboard(const QWidget* widget) {
  const QWidget* const focus = QApplication::focusWidget();
  return focus != nullptr && (focus == widget || widget->isAncestorOf(focus));
}

// Each splitter has two parts; handle 1 lies between them.
QWidget* DividerOf(const VxSplitter* splitter) { return splitter->handle(1); }

// Sends the event that the toolkit sends for the menu key.
void AskForMenu() {
  QWidget* const focus = QApplication::focusWidget();
  if (focus == nullptr) return;
  const QPoint place = focus->inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
  QContextMenuEvent event(QContextMenuEvent::Keyboard, place, focus->mapToGlobal(place));
  QApplication::sendEvent(focus, &event);
}

}  // namespace

QWidget* NextTabStop(const QWidget& frame) {
  const QWidget* const from = QApplication::focusWidget();
  if (from == nullptr) return nullptr;
  for (QWidget* stop = from->nextInFocusChain(); stop != from; stop = stop->nextInFocusChain()) {
    const bool isStop = (stop->focusPolicy() & Qt::TabFocus) && stop->isVisible() &&
                        stop->isEnabled() && stop->focusProxy() == nullptr;
    if (isStop) return frame.isAncestorOf(stop) ? stop : nullptr;
  }
  return nullptr;
}

FrameKeys::FrameKeys(QWidget& frame, std::vector<QWidget*> panes,
                     std::vector<VxSplitter*> splitters)
    : QObject(&frame), panes_(std::move(panes)), splitters_(std::move(splitters)) {
  OnKeysOf(kCommandNextPane, frame, [this] { GoToPane(1); });
  OnKeysOf(kCommandPreviousPane, frame, [this] { GoToPane(-1); });
  OnKeysOf(kCommandNextDivider, frame, [this] { GoToDivider(); });
  for (const VxSplitter* splitter : splitters_) {
    connect(splitter, &VxSplitter::HandleLeft, this, &FrameKeys::GoBack);
  }
}

void FrameKeys::AddMenuKey(QWidget& pane) { OnKeysOf(kCommandOpenMenu, pane, AskForMenu); }

// A pane whose view is disabled at the moment is skipped.
void FrameKeys::GoToPane(int step) {
  const auto count = static_cast<int>(panes_.size());
  const auto found = std::ranges::find_if(panes_, HasKeyboard);
  int pane = static_cast<int>(found - panes_.begin());
  if (found == panes_.end() && step > 0) pane = -1;
  for (int tries = 0; tries < count; ++tries) {
    pane = (pane + step + count) % count;
    QWidget* const next = panes_[static_cast<std::size_t>(pane)];
    if (next->focusProxy()->isEnabled()) return next->setFocus(Qt::ShortcutFocusReason);
  }
}

void FrameKeys::GoToDivider() {
  const auto current = std::ranges::find_if(splitters_, HasKeyboard, DividerOf);
  if (current == splitters_.end()) before_ = QApplication::focusWidget();
  const bool isLast = current == splitters_.end() || current + 1 == splitters_.end();
  DividerOf(isLast ? splitters_.front() : current[1])->setFocus(Qt::ShortcutFocusReason);
}

void FrameKeys::GoBack() {
  QWidget* const target = before_ && before_->isEnabled() ? before_.data() : panes_.front();
  target->setFocus(Qt::ShortcutFocusReason);
}

}  // namespace feedloom
