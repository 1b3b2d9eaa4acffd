#include "ui/browser/PageView.h"

#include <QApplication>
#include <QChildEvent>
#include <QDropEvent>
#include <QMimeData>

#include "ui/browser/PageQuestions.h"

namespace feedloom {

// The system's events go to a child, and the engine makes another one for each renderer process.
void PageView::childEvent(QChildEvent* event) {
  if (event->added()) event->child()->installEventFilter(this);
  QWebEngineView::childEvent(event);
}

// No page can send these events. The engine hides the child of a renderer process that it leaves,
// and hands the keyboard to the next child only sometimes.
bool PageView::eventFilter(QObject* watched, QEvent* event) {
  if (IsGesture(*event)) {
    isTabPressed_ = IsTab(*event);
    emit Touched();
  } else if (event->type() == QEvent::Hide && isVisible()) {
    if (static_cast<const QWidget*>(watched)->hasFocus()) KeepKeyboard();
  }
  return QWebEngineView::eventFilter(watched, event);
}

bool PageView::IsFromPage(const QDropEvent& event) const {
  const QObject* source = event.source();
  while (source != nullptr && source != this) source = source->parent();
  return source != nullptr;
}

// An address from the page is accepted here, and refused with each move, so that the widgets around
// the page are not asked.
void PageView::dragEnterEvent(QDragEnterEvent* event) {
  if (!IsFromPage(*event)) return event->ignore();
  event->mimeData()->hasUrls() ? event->accept() : QWebEngineView::dragEnterEvent(event);
}

void PageView::dragMoveEvent(QDragMoveEvent* event) {
  event->mimeData()->hasUrls() ? event->ignore() : QWebEngineView::dragMoveEvent(event);
}

void PageView::dropEvent(QDropEvent* event) {
  event->mimeData()->hasUrls() ? event->ignore() : QWebEngineView::dropEvent(event);
}

// The toolkit looks for another widget when the one that has the keyboard is hidden, as does a page
// without anything to choose when it gets the keyboard.
bool PageView::focusNextPrevChild(bool next) {
  if (isTabPressed_ || !isAncestorOf(QApplication::focusWidget())) {
    return QWebEngineView::focusNextPrevChild(next);
  }
  KeepKeyboard();
  return true;
}

void PageView::KeepKeyboard() {
  QMetaObject::invokeMethod(
      this, [this] { setFocus(); }, Qt::QueuedConnection);
}

}  // namespace feedloom
