// A bare server on 127.0.0.1 that keeps the first lines of requests as they came over the wire.
#pragma once

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <string>
#include <thread>
#include <vector>

namespace feedloom {

// Answers each connection's request with status 200 and "body", until its lines are asked for.
class RequestRecorder {
 public:
  RequestRecorder() {
    auto* const name = reinterpret_cast<sockaddr*>(&address_);
    socklen_t size = sizeof address_;
    if (bind(listener_, name, size) != 0 || getsockname(listener_, name, &size) != 0 ||
        listen(listener_, SOMAXCONN) != 0) {
      throw std::runtime_error("no port to listen on");
    }
    thread_ = std::thread([this] { Serve(); });
  }
  ~RequestRecorder() {
    if (thread_.joinable()) Lines();
    close(listener_);
  }

  std::string HostAndPort() const {
    return "127.0.0.1:" + std::to_string(ntohs(address_.sin_port));
  }
  std::vector<std::string> Lines() {
    shutdown(listener_, SHUT_RDWR);  // wakes the thread
    thread_.join();
    return lines_;
  }

 private:
  void Serve() {
    const std::string answer =
        "HTTP/1.1 200 OK\r\nConnection: close\r\nContent-Length: 4\r\n\r\nbody";
    for (int connection = -1; (connection = accept(listener_, nullptr, nullptr)) >= 0;) {
      std::string head;
      char block[4096];
      while (head.find("\r\n\r\n") == head.npos) {
        const ssize_t count = recv(connection, block, sizeof block, 0);
        if (count <= 0) break;
        head.append(block, static_cast<std::size_t>(count));
      }
      lines_.push_back(head.substr(0, head.find("\r\n")));
      send(connection, answer.data(), answer.size(), MSG_NOSIGNAL);
      close(connection);
    }
  }

  const int listener_ = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address_{
      .sin_family = AF_INET, .sin_port = 0, .sin_addr = {htonl(INADDR_LOOPBACK)}, .sin_zero = {}};
  std::vector<std::string> lines_;
  std::thread thread_;
};

}  // namespace feedloom
