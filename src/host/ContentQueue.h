// What is to be opened in the module's frame.
#pragma once

#include <QObject>
#include <QTimer>
#include <cstddef>
#include <deque>
#include <string>

#include "host/HandOver.h"

namespace feedloom {

class HostWindow;

// Gives contents to the frame one by one: each waits until the dialogs of those before it, and any
// other dialog or menu, are closed. What the frame does not take, and what is too much, is said in
// the status bar. Interface thread.
class ContentQueue : public QObject {
  Q_OBJECT

 public:
  // So many contents may wait. A user has to answer a dialog for each of them.
  static constexpr std::size_t kMostWaiting = 10;

  // `window` owns the object. Nothing is given until it has a frame.
  explicit ContentQueue(HostWindow& window);

  void Add(const HandOver& handOver);

 private:
  void GiveNext();
  void Report();

  HostWindow& window_;
  std::deque<std::string> waiting_;
  std::string firstRefused_;
  std::size_t refused_ = 0;
  std::size_t omitted_ = 0;
  QTimer look_;  // runs while something waits
};

}  // namespace feedloom
