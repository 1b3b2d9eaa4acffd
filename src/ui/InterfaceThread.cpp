#include "ui/InterfaceThread.h"

#include <QMetaObject>
#include <QObject>
#include <QThread>

namespace feedloom {

// One RunAndWait call, shared by the waiting thread and the interface thread.
struct InterfaceThread::Visit {
  bool done = false;
};

InterfaceThread::InterfaceThread() : receiver_(std::make_unique<QObject>()) {}

InterfaceThread::~InterfaceThread() { Close(); }

bool InterfaceThread::IsHere() const { return receiver_->thread() == QThread::currentThread(); }

void InterfaceThread::Run(std::function<void()> work) {
  {
    const MutexLock lock(mutex_);
    if (!receiver_) return;
    if (!IsHere()) {
      QMetaObject::invokeMethod(receiver_.get(), std::move(work), Qt::QueuedConnection);
      return;
    }
  }
  work();
}

void InterfaceThread::Queue(std::function<void()> work) {
  const MutexLock lock(mutex_);
  if (!receiver_) return;
  QMetaObject::invokeMethod(receiver_.get(), std::move(work), Qt::QueuedConnection);
}

void InterfaceThread::RunAndWait(std::function<void()> work) {
  {
    const MutexLock lock(mutex_);
    if (!receiver_) return;
    if (!IsHere()) {
      const auto visit = std::make_shared<Visit>();
      const auto run = [this, visit, todo = std::move(work)] {
        // The toolkit's queue hands over what `todo` reads by locks that the thread sanitizer
        // cannot see; it sees this one.
        mutex_.lock();
        mutex_.unlock();
        todo();
        const MutexLock ending(mutex_);
        visit->done = true;
        changed_.notify_all();
      };
      QMetaObject::invokeMethod(receiver_.get(), run, Qt::QueuedConnection);
      while (receiver_ && !visit->done) changed_.wait(mutex_);
      return;
    }
  }
  work();
}

// Destroying the receiver drops its queued work.
void InterfaceThread::Close() {
  std::unique_ptr<QObject> receiver;
  const MutexLock lock(mutex_);
  receiver = std::move(receiver_);
  changed_.notify_all();
}

std::intptr_t InterfaceTarget::Send(unsigned message, std::intptr_t wParam, std::intptr_t lParam) {
  const auto answer = std::make_shared<std::intptr_t>(0);
  thread_->RunAndWait(
      [this, answer, message, wParam, lParam] { *answer = handler_(message, wParam, lParam); });
  return *answer;
}

}  // namespace feedloom
