// A bare server on 127.0.0.1 that keeps requests as they came over the wire.
#pragma once

#include <string>
#include <thread>
#include <vector>

#include "platform/Mutex.h"

namespace feedloom {

// Reads each connection's request up to the end of its head and answers with bytes of the test's:
// the first with `answers[0]` and so on, those beyond with the last. Serves until its end.
class RequestRecorder {
 public:
  explicit RequestRecorder(std::vector<std::string> answers);
  ~RequestRecorder();
  RequestRecorder(const RequestRecorder&) = delete;
  RequestRecorder& operator=(const RequestRecorder&) = delete;

  // A whole answer with this body.
  static std::string Ok(const std::string& body);

  std::string HostAndPort() const { return "127.0.0.1:" + std::to_string(port_); }
  // The first lines of the requests so far, without their line ends.
  std::vector<std::string> Lines() const;

 private:
  void Listen();
  void Serve();
  void Answer(int connection);

  const std::vector<std::string> answers_;
  int listener_ = -1;
  int port_ = 0;
  mutable Mutex mutex_;
  std::vector<std::string> heads_ FEEDLOOM_GUARDED_BY(mutex_);
  std::thread thread_;
};

}  // namespace feedloom
