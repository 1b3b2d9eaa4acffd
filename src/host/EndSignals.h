#pragma once

#include <QObject>

namespace feedloom {

// Turns the system's requests to end (SIGINT, SIGTERM, SIGHUP) into a signal of the event loop. The
// second request of a kind ends the program at once. One object a process.
class EndSignals : public QObject {
  Q_OBJECT

 public:
  EndSignals();
  ~EndSignals() override;
  EndSignals(const EndSignals&) = delete;
  EndSignals& operator=(const EndSignals&) = delete;

 signals:
  void Requested();
};

}  // namespace feedloom
