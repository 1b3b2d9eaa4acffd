// The way from a second start on a profile to the first one: a local socket, for the same user
// only.
#pragma once

#include <QLocalServer>
#include <QObject>
#include <chrono>
#include <string>
#include <vector>

#include "host/HandOver.h"

class QLocalSocket;

namespace feedloom {

// Where the socket of the profile in `profileDir` may lie, best first: in the profile, where that
// path is not too long for a socket, and in `runtimeDir` (XDG_RUNTIME_DIR; empty: none) under a
// name made of the profile's resolved path.
std::vector<std::string> SocketPaths(const std::string& profileDir, const std::string& runtimeDir);

// The end of the program that has the profile's lock. Interface thread.
class InstanceSocket : public QObject {
  Q_OBJECT

 public:
  // Listens from now on; what is sent is received by the event loop. A socket that a killed program
  // has left is replaced. Without a place for a socket nothing is received.
  explicit InstanceSocket(const std::vector<std::string>& paths);

 signals:
  // A second start has handed this over; it gets its answer when the handlers have come back.
  void Received(const feedloom::HandOver& handOver);

 private:
  void Welcome();
  void Read(QLocalSocket& sender);

  QLocalServer server_;
};

// The other end. What has become of it:
enum class HandOverEnd {
  Taken,
  NoAnswer,  // somebody is there, and says nothing
  NobodyIn,  // there is no such socket, or its owner has gone
};

// Sends `handOver` to the first of `paths` where somebody listens, and waits for the answer for
// `patience` at most. Main thread; the application object need not exist.
HandOverEnd SendHandOver(const std::vector<std::string>& paths, const HandOver& handOver,
                         std::chrono::milliseconds patience);

}  // namespace feedloom
