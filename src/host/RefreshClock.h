#pragma once

#include <QTimer>
#include <functional>

#include "files/Registry.h"
#include "threads/Clock.h"

namespace feedloom {

// Has the channels refreshed in the period that the user has chosen in the settings, which are read
// from the registry at each look. The time of the last refresh stands there too, so that the period
// goes on from one start to the next. Interface thread.
class RefreshClock {
 public:
  // `refresh` is called when the time has come, unless `isOnline` says that the machine has no
  // network; then as soon as a look finds it. `clock` must outlive the object.
  RefreshClock(Registry registry, const Clock& clock, std::function<bool()> isOnline,
               std::function<void()> refresh);

  // Looks at the time now and then from now on. The system's timers stand still while the machine
  // sleeps, so a look comes within a minute of its waking.
  void Start();

  // Refreshes if it is time. A clock that was set back begins the period anew.
  void Look();

 private:
  bool IsTime() const;
  // In the registry; also in memory, for a registry that cannot be written.
  void RememberNow();

  const Registry registry_;
  const Clock& clock_;
  const std::function<bool()> isOnline_;
  const std::function<void()> refresh_;
  std::chrono::sys_seconds last_;
  QTimer look_;
};

}  // namespace feedloom
