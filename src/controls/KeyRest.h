#pragma once

#include <QTimer>
#include <chrono>
#include <functional>
#include <utility>

namespace feedloom {

// How long the keys rest before a view acts on the row where they have come to: whoever goes
// through many rows does not wait for each.
inline constexpr std::chrono::milliseconds kKeyRest(300);

// Calls a function when the keys have rested. It must not outlive its parent, whose child "keyRest"
// it is. Interface thread only.
class KeyRest : public QTimer {
 public:
  KeyRest(QObject* parent, std::function<void()> run) : QTimer(parent), run_(std::move(run)) {
    setObjectName("keyRest");
    setSingleShot(true);
    setInterval(kKeyRest);
    callOnTimeout(run_);
  }

  // Does not wait any longer for keys that have begun to rest.
  void Settle() {
    if (!isActive()) return;
    stop();
    run_();
  }

 private:
  const std::function<void()> run_;
};

}  // namespace feedloom
