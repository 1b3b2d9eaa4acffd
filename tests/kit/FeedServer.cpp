#include "kit/FeedServer.h"

#include <httplib.h>
#include <sys/socket.h>

#include <algorithm>
#include <condition_variable>

namespace feedloom {
namespace {

constexpr const char* kXml = "text/xml";
constexpr int kNotModified = 304;

// Sends `bytes` as they are: the library's own way compresses them when the client takes it.
void SetBody(httplib::Response& response, const std::string& bytes, const std::string& type) {
  if (bytes.empty()) return response.set_content(bytes, type);
  response.set_content_provider(
      bytes.size(), type, [bytes](std::size_t offset, std::size_t length, httplib::DataSink& sink) {
        return sink.write(bytes.data() + offset, length);
      });
}

}  // namespace

struct FeedServer::Impl {
  // Fills in the answer; an empty function means that there is no answer yet.
  using Answer = std::function<void(const httplib::Request&, httplib::Response&)>;

  Impl() {
    const auto handle = [this](auto& request, auto& response) { Handle(request, response); };
    server.Get(".*", handle);
    server.Post(".*", handle);
    server.new_task_queue = [this] {
      auto* const pool = new httplib::ThreadPool(32);
      poolStands = true;
      poolStands.notify_one();
      return pool;
    };
    server.set_keep_alive_max_count(1);
    int socket = -1;
    server.set_socket_options([&socket](int created) { socket = created; });
    port = server.bind_to_any_port("127.0.0.1");
    // The library's own queue of five drops connections when many threads connect at once.
    if (port < 0 || listen(socket, 256) != 0) throw std::runtime_error("no port to listen on");
    listener = std::thread([this] { server.listen_after_bind(); });
    // The library calls itself running before its threads are there; a test may count threads.
    poolStands.wait(false);
  }

  ~Impl() {
    Change([this] { ended = true; });
    server.stop();
    listener.join();
  }

  void Change(const std::function<void()>& what) {
    const std::lock_guard lock(mutex);
    what();
    changed.notify_all();
  }
  void Put(const std::string& path, Answer answer) {
    Change([&] { answers[path] = std::move(answer); });
  }

  // True when the pause was over before the server's end.
  bool Pause(std::chrono::milliseconds duration) {
    std::unique_lock lock(mutex);
    return !changed.wait_for(lock, duration, [this] { return ended; });
  }

  void Handle(const httplib::Request& request, httplib::Response& response) {
    Change([&] {
      highest = std::max(highest, ++inProgress);
      seen.push_back(request);
    });
    response.status = 503;
    if (const Answer answer = AwaitAnswer(request)) {
      response.status = 200;
      answer(request, response);
    }
    Change([&] {
      --inProgress;
      unchanged += response.status == kNotModified;
    });
  }

  // The answer, after the latency; empty when the server ends meanwhile.
  Answer AwaitAnswer(const httplib::Request& request) {
    Answer answer;
    if (!Pause(latency)) return answer;
    std::unique_lock lock(mutex);
    changed.wait(lock, [&] { return ended || (answer = AnswerTo(request)); });
    return answer;
  }

  Answer AnswerTo(const httplib::Request& request) const {
    for (const std::string& path : {request.target, request.path}) {
      if (const auto found = answers.find(path); found != answers.end()) return found->second;
    }
    return [](auto&, auto& response) { response.status = 404; };
  }

  static auto IsFor(const std::string& path) {
    return [path](const auto& request) { return request.target == path || request.path == path; };
  }
  int Requests(const std::string& path) const {
    return static_cast<int>(std::ranges::count_if(seen, IsFor(path)));
  }

  httplib::Server server;
  int port = 0;
  std::atomic<bool> poolStands = false;
  std::atomic<std::chrono::milliseconds> latency{};
  std::thread listener;

  std::mutex mutex;  // of all that follows
  std::condition_variable changed;
  bool ended = false;
  std::map<std::string, Answer> answers;
  std::vector<httplib::Request> seen;
  int inProgress = 0, highest = 0, unchanged = 0;
};

FeedServer::FeedServer() : impl_(std::make_unique<Impl>()) {}
FeedServer::~FeedServer() = default;

int FeedServer::Port() const { return impl_->port; }

std::string FeedServer::Url(const std::string& path) const {
  return "http://127.0.0.1:" + std::to_string(Port()) + path;
}

void FeedServer::Serve(const std::string& path, const std::string& bytes,
                       const std::string& contentType) {
  impl_->Put(path, [=](auto&, auto& response) { SetBody(response, bytes, contentType); });
}

// As the library does it by itself for a text.
void FeedServer::Compressed(const std::string& path, const std::string& bytes) {
  impl_->Put(path, [bytes](auto&, auto& response) { response.set_content(bytes, kXml); });
}

void FeedServer::Redirect(const std::string& path, const std::string& toUrl, int status) {
  impl_->Put(path, [=](auto&, auto& response) { response.set_redirect(toUrl, status); });
}

void FeedServer::Fail(const std::string& path, int status, const std::string& retryAfter) {
  impl_->Put(path, [=](auto&, auto& response) {
    response.status = status;
    if (!retryAfter.empty()) response.set_header("Retry-After", retryAfter);
  });
}

void FeedServer::Protect(const std::string& path, const std::string& html, const std::string& login,
                         int status) {
  Challenge(path, html, "Basic realm=\"the realm\"", "Basic " + login, status);
}

void FeedServer::Challenge(const std::string& path, const std::string& html,
                           const std::string& challenge, const std::string& answer, int status) {
  impl_->Put(path, [=](const httplib::Request& request, httplib::Response& response) {
    const bool isProxy = status == 407;
    const std::string said =
        request.get_header_value(isProxy ? "Proxy-Authorization" : "Authorization");
    const bool knows = said.find(answer) != said.npos;
    SetBody(response, knows ? html : "no entry", "text/html");
    if (knows) return;
    response.status = status;
    response.set_header(isProxy ? "Proxy-Authenticate" : "WWW-Authenticate", challenge);
  });
}

void FeedServer::WantCookie(const std::string& path, const std::string& bytes) {
  impl_->Put(path, [=](const httplib::Request& request, httplib::Response& response) {
    if (request.get_header_value("Cookie") == "seen=1") return SetBody(response, bytes, kXml);
    response.set_redirect(path);
    response.set_header("Set-Cookie", "seen=1");
  });
}

void FeedServer::ServeVersion(const std::string& path, const std::string& bytes,
                              const std::string& etag, const std::string& lastModified) {
  impl_->Put(path, [=](auto& request, auto& response) {
    const std::string known = request.get_header_value("If-None-Match");
    const bool isKnown =
        known.empty()
            ? !lastModified.empty() && request.get_header_value("If-Modified-Since") == lastModified
            : known == etag;
    if (!etag.empty()) response.set_header("ETag", etag);
    if (!lastModified.empty()) response.set_header("Last-Modified", lastModified);
    if (!isKnown) return SetBody(response, bytes, kXml);
    response.status = kNotModified;
  });
}

void FeedServer::KeepConnections() {
  impl_->server.set_keep_alive_timeout(1);
  impl_->server.set_keep_alive_max_count(10'000);
}

int FeedServer::Unchanged() const {
  const std::lock_guard lock(impl_->mutex);
  return impl_->unchanged;
}

int FeedServer::Connections() const {
  const std::lock_guard lock(impl_->mutex);
  std::set<int> ports;
  for (const httplib::Request& request : impl_->seen) ports.insert(request.remote_port);
  return static_cast<int>(ports.size());
}

void FeedServer::Echo(const std::string& path) {
  impl_->Put(path, [](auto& request, auto& response) { SetBody(response, request.body, kXml); });
}

void FeedServer::Hang(const std::string& path) { impl_->Put(path, {}); }

void FeedServer::Endless(const std::string& path) {
  constexpr std::size_t kEnd = 256u << 20;
  impl_->Put(path, [this](auto&, auto& response) {
    // A type that the library does not compress.
    response.set_chunked_content_provider(
        "application/octet-stream", [this](std::size_t offset, httplib::DataSink& sink) {
          static const std::string block(1 << 16, 'x');
          if (offset >= kEnd) return impl_->Pause(std::chrono::hours(1));
          return impl_->Pause({}) && sink.write(block.data(), block.size());
        });
  });
}

void FeedServer::BreakOff(const std::string& path, const std::string& bytes) {
  impl_->Put(path, [bytes](auto&, auto& response) {
    response.set_content_provider(
        bytes.size() + 1000, kXml,
        [bytes](std::size_t offset, std::size_t, httplib::DataSink& sink) {
          return offset < bytes.size() && sink.write(bytes.data(), bytes.size());
        });
  });
}

void FeedServer::SetLatency(std::chrono::milliseconds latency) { impl_->latency = latency; }

int FeedServer::Requests(const std::string& path) const {
  const std::lock_guard lock(impl_->mutex);
  return impl_->Requests(path);
}

int FeedServer::HighestConcurrency() const {
  const std::lock_guard lock(impl_->mutex);
  return impl_->highest;
}

bool FeedServer::WaitForRequest(const std::string& path, std::chrono::milliseconds timeout,
                                int count) const {
  std::unique_lock lock(impl_->mutex);
  return impl_->changed.wait_for(lock, timeout, [&] { return impl_->Requests(path) >= count; });
}

std::string FeedServer::LastHeader(const std::string& path, const std::string& name) const {
  const std::lock_guard lock(impl_->mutex);
  const auto& seen = impl_->seen;
  const auto last = std::find_if(seen.rbegin(), seen.rend(), Impl::IsFor(path));
  return last == seen.rend() ? "" : last->get_header_value(name);
}

}  // namespace feedloom
