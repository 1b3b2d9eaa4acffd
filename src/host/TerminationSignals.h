#pragma once

#include <QObject>

namespace feedloom {

// Reports SIGINT, SIGTERM and SIGHUP through the event loop, as the signal Requested. Only the
// first of them is reported. A second signal of the same number ends the process at once. A signal
// that the parent process has set to be ignored stays ignored. At most one object may exist in a
// process.
class TerminationSignals : public QObject {
  Q_OBJECT

 public:
  TerminationSignals();
  ~TerminationSignals() override;
  TerminationSignals(const TerminationSignals&) = delete;
  TerminationSignals& operator=(const TerminationSignals&) = delete;

 signals:
  void Requested();
};

}  // namespace feedloom
