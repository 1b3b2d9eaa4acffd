#pragma once

#include <QObject>
#include <functional>

class QWidget;

namespace feedloom {

// While it is started, Escape anywhere in the window of `widget` calls `onEscape` and does nothing
// else. Interface thread only.
class EscapeWatch : public QObject {
 public:
  // `widget` must outlive the object.
  EscapeWatch(QWidget& widget, std::function<void()> onEscape)
      : widget_(widget), onEscape_(std::move(onEscape)) {}

  void Start();
  void Stop();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget& widget_;
  const std::function<void()> onEscape_;
};

}  // namespace feedloom
