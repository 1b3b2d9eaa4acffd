#include "host/EndSignals.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <atomic>
#include <cerrno>
#include <csignal>

namespace feedloom {
namespace {

constexpr int kEndSignals[] = {SIGINT, SIGTERM, SIGHUP};

std::atomic<int> theEvent = -1;

void OnSignal(int) {
  const int error = errno;
  eventfd_write(theEvent, 1);
  errno = error;
}

void Handle(int number) {
  struct sigaction action {};
  sigaction(number, nullptr, &action);
  if (action.sa_handler == SIG_IGN) return;  // whoever started the program wants it so
  action = {};
  action.sa_handler = OnSignal;
  action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
  sigaction(number, &action, nullptr);
}

void Restore(int number) {
  struct sigaction action {};
  sigaction(number, nullptr, &action);
  if (action.sa_handler == OnSignal) std::signal(number, SIG_DFL);
}

}  // namespace

EndSignals::EndSignals() {
  theEvent = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
  auto* notifier = new QSocketNotifier(theEvent, QSocketNotifier::Read, this);
  connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
    notifier->setEnabled(false);
    emit Requested();
  });
  for (const int number : kEndSignals) Handle(number);
}

EndSignals::~EndSignals() {
  for (const int number : kEndSignals) Restore(number);
  close(theEvent);
}

}  // namespace feedloom
