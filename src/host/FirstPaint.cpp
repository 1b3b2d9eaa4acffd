#include "host/FirstPaint.h"

#include <QEvent>
#include <QTimer>
#include <QWidget>
#include <chrono>
#include <utility>

namespace feedloom {
namespace {

constexpr std::chrono::milliseconds kLongestWait(500);

class PaintWatcher : public QObject {
 public:
  PaintWatcher(QWidget& window, std::function<void()> run)
      : QObject(&window), run_(std::move(run)) {
    window.installEventFilter(this);
    QTimer::singleShot(kLongestWait, this, &PaintWatcher::Run);
  }

  bool eventFilter(QObject* window, QEvent* event) override {
    if (event->type() == QEvent::Paint) {
      window->removeEventFilter(this);
      QTimer::singleShot(0, this, &PaintWatcher::Run);
    }
    return false;
  }

 private:
  void Run() {
    if (const auto run = std::exchange(run_, nullptr)) run();
  }

  std::function<void()> run_;
};

}  // namespace

void OnFirstPaint(QWidget& window, std::function<void()> run) {
  new PaintWatcher(window, std::move(run));
}

}  // namespace feedloom
