// A bare server on 127.0.0.1 that keeps the first lines of requests as they came over the wire.
#pragma once

#include <string>
#include <thread>
#include <vector>

#include "platform/Mutex.h"

namespace feedloom {

// Answers each connection's request with status 200 and `body`, until the object ends.
class RequestRecorder {
 public:
  explicit RequestRecorder(const std::string& body);
  ~RequestRecorder();
  RequestRecorder(const RequestRecorder&) = delete;
  RequestRecorder& operator=(const RequestRecorder&) = delete;

  std::string HostAndPort() const { return "127.0.0.1:" + std::to_string(port_); }
  std::vector<std::string> Lines() const;

 private:
  void Serve();

  const std::string answer_;
  int listener_ = -1;
  int port_ = 0;
  mutable Mutex mutex_;
  std::vector<std::string> lines_ FEEDLOOM_GUARDED_BY(mutex_);
  std::thread thread_;
};

}  // namespace feedloom
