#include "host/TerminationSignals.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <atomic>
#include <cerrno>
#include <csignal>

namespace feedloom {
namespace {

constexpr int kTerminationSignals[] = {SIGINT, SIGTERM, SIGHUP};

std::atomic<int> theEvent = -1;

void OnSignal(int) {
  const int error = errno;
  eventfd_write(theEvent, 1);
  errno = error;
}

void Handle(int number) {
  struct sigaction action {};
  sigaction(number, nullptr, &action);
  if (action.sa_handler == SIG_IGN) return;  // set by the parent process, nohup for example
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

TerminationSignals::TerminationSignals() {
  theEvent = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
  auto* notifier = new QSocketNotifier(theEvent, QSocketNotifier::Read, this);
  connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
    notifier->setEnabled(false);
    emit Requested();
  });
  for (const int number : kTerminationSignals) Handle(number);
}

TerminationSignals::~TerminationSignals() {
  for (const int number : kTerminationSignals) Restore(number);
  close(theEvent);
}

}  // namespace feedloom
