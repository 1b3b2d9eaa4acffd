#include "kit/RequestRecorder.h"

#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

#include <algorithm>
#include <stdexcept>

namespace feedloom {
namespace {

// The bytes up to the end of a request's head, or of the connection.
std::string ReadHead(int connection) {
  std::string head;
  char block[4096];
  while (head.find("\r\n\r\n") == head.npos) {
    const ssize_t count = recv(connection, block, sizeof block, 0);
    if (count <= 0) break;
    head.append(block, static_cast<std::size_t>(count));
  }
  return head;
}

}  // namespace

RequestRecorder::RequestRecorder(std::vector<std::string> answers) : answers_(std::move(answers)) {
  Listen();
  thread_ = std::thread([this] { Serve(); });
}

RequestRecorder::~RequestRecorder() {
  shutdown(listener_, SHUT_RDWR);  // wakes the thread
  thread_.join();
  close(listener_);
}

std::string RequestRecorder::Ok(const std::string& body) {
  return "HTTP/1.1 200 OK\r\nConnection: close\r\nContent-Length: " + std::to_string(body.size()) +
         "\r\n\r\n" + body;
}

std::vector<std::string> RequestRecorder::Lines() const {
  const MutexLock lock(mutex_);
  std::vector<std::string> lines;
  for (const std::string& head : heads_) lines.push_back(head.substr(0, head.find("\r\n")));
  return lines;
}

void RequestRecorder::Listen() {
  constexpr int kBacklog = 16;
  sockaddr_in address{};
  socklen_t size = sizeof address;
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  auto* const name = reinterpret_cast<sockaddr*>(&address);
  listener_ = socket(AF_INET, SOCK_STREAM, 0);
  if (bind(listener_, name, size) != 0 || getsockname(listener_, name, &size) != 0 ||
      listen(listener_, kBacklog) != 0) {
    throw std::runtime_error("no port to listen on");
  }
  port_ = ntohs(address.sin_port);
}

void RequestRecorder::Serve() {
  for (;;) {
    const int connection = accept(listener_, nullptr, nullptr);
    if (connection < 0) return;
    // A client that says nothing must not keep a test from its end.
    constexpr timeval kLongestSilence{5, 0};
    setsockopt(connection, SOL_SOCKET, SO_RCVTIMEO, &kLongestSilence, sizeof kLongestSilence);
    Answer(connection);
    close(connection);
  }
}

void RequestRecorder::Answer(int connection) {
  std::string head = ReadHead(connection);
  std::size_t number = 0;
  {
    const MutexLock lock(mutex_);
    number = std::min(heads_.size(), answers_.size() - 1);
    heads_.push_back(std::move(head));
  }
  const std::string& answer = answers_[number];
  send(connection, answer.data(), answer.size(), MSG_NOSIGNAL);
}

}  // namespace feedloom
