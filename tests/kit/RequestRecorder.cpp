#include "kit/RequestRecorder.h"

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace feedloom {

RequestRecorder::RequestRecorder(const std::string& body)
    : answer_("HTTP/1.1 200 OK\r\nConnection: close\r\nContent-Length: " +
              std::to_string(body.size()) + "\r\n\r\n" + body) {
  sockaddr_in address{};
  socklen_t size = sizeof address;
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  auto* const name = reinterpret_cast<sockaddr*>(&address);
  listener_ = socket(AF_INET, SOCK_STREAM, 0);
  if (bind(listener_, name, size) != 0 || getsockname(listener_, name, &size) != 0 ||
      listen(listener_, SOMAXCONN) != 0) {
    throw std::runtime_error("no port to listen on");
  }
  port_ = ntohs(address.sin_port);
  thread_ = std::thread([this] { Serve(); });
}

RequestRecorder::~RequestRecorder() {
  shutdown(listener_, SHUT_RDWR);  // wakes the thread
  thread_.join();
  close(listener_);
}

std::vector<std::string> RequestRecorder::Lines() const {
  const MutexLock lock(mutex_);
  return lines_;
}

void RequestRecorder::Serve() {
  for (int connection = -1; (connection = accept(listener_, nullptr, nullptr)) >= 0;) {
    std::string head;
    char block[4096];
    while (head.find("\r\n\r\n") == head.npos) {
      const ssize_t count = recv(connection, block, sizeof block, 0);
      if (count <= 0) break;
      head.append(block, static_cast<std::size_t>(count));
    }
    {
      const MutexLock lock(mutex_);
      lines_.push_back(head.substr(0, head.find("\r\n")));
    }
    send(connection, answer_.data(), answer_.size(), MSG_NOSIGNAL);
    close(connection);
  }
}

}  // namespace feedloom
