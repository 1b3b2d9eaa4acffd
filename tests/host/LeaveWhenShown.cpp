// Linked to a host program, closes its window as soon as it has been shown.

#include <QApplication>
#include <QTimer>
#include <QWidget>

namespace {

class LeaveWhenShown : public QObject {
 public:
  using QObject::QObject;

  bool eventFilter(QObject* watched, QEvent* event) override {
    auto* window = qobject_cast<QWidget*>(watched);
    if (event->type() == QEvent::Show && window != nullptr && window->isWindow()) {
      QTimer::singleShot(0, window, &QWidget::close);
    }
    return false;
  }
};

void WatchWindows() { qApp->installEventFilter(new LeaveWhenShown(qApp)); }

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(WatchWindows)
