#include "ui/browser/PageView.h"

#include <QApplication>
#include <QChildEvent>

#include "ui/browser/PageQuestions.h"

namespace feedloom {

// The system's events go to a child, and the engine makes another one for each renderer process.
void PageView::childEvent(QChildEvent* event) {
  if (event->added()) event->child()->installEventFilter(this);
  QWebEngineView::childEvent(event);
}

// No page can send these events.
bool PageView::eventFilter(QObject* watched, QEvent* event) {
  if (IsGesture(*event)) {
    isTabPressed_ = IsTab(*event);
    emit Touched();
  }
  return QWebEngineView::eventFilter(watched, event);
}

// The engine hides the child of the renderer process that it leaves, and the toolkit then looks for
// another widget for the keyboard, as does a page without anything to choose when it gets it.
bool PageView::focusNextPrevChild(bool next) {
  if (isTabPressed_ || !isAncestorOf(QApplication::focusWidget())) {
    return QWebEngineView::focusNextPrevChild(next);
  }
  QMetaObject::invokeMethod(
      this, [this] { setFocus(); }, Qt::QueuedConnection);
  return true;
}

}  // namespace feedloom
