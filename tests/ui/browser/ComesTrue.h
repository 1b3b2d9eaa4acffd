#pragma once

#include <QEventLoop>
#include <QTimer>
#include <functional>

namespace feedloom {

// Waits in an event loop of its own: one that polls all the time takes the machine away from the
// engine's processes. `patience` is in milliseconds.
inline bool ComesTrue(const std::function<bool()>& isTrue, int patience = 20'000) {
  QEventLoop loop;
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, &loop, [&] {
    if (isTrue()) loop.quit();
  });
  QTimer::singleShot(patience, &loop, &QEventLoop::quit);
  look.start(5);
  if (!isTrue()) loop.exec();
  return isTrue();
}

}  // namespace feedloom
