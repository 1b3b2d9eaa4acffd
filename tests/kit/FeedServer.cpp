#include "kit/FeedServer.h"

#include <httplib.h>
#include <sys/socket.h>

#include "platform/Mutex.h"

namespace feedloom {
namespace {

using std::chrono::steady_clock;

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
  struct Seen {
    int count = 0;
    httplib::Request last;
  };

  Impl() {
    const auto handle = [this](auto& request, auto& response) { Handle(request, response); };
    server.Get(".*", handle);
    server.Post(".*", handle);
    Start();
  }

  ~Impl() {
    {
      const MutexLock lock(mutex);
      ended = true;
      changed.notify_all();
    }
    server.stop();
    listener.join();
  }

  void Put(const std::string& path, Answer answer) {
    const MutexLock lock(mutex);
    answers[path] = std::move(answer);
    changed.notify_all();
  }

  // True when the pause was over before the server's end.
  bool Pause(std::chrono::milliseconds duration) {
    const auto deadline = steady_clock::now() + duration;
    const MutexLock lock(mutex);
    while (!ended && changed.wait_until(mutex, deadline) != std::cv_status::timeout) {
    }
    return !ended;
  }

  void Start() {
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

  void Handle(const httplib::Request& request, httplib::Response& response) {
    Arrived(request);
    response.status = 503;
    if (const Answer answer = AwaitAnswer(request)) {
      response.status = 200;
      answer(request, response);
    }
    const MutexLock lock(mutex);
    --inProgress;
    if (response.status == kNotModified) ++unchanged;
  }

  void Arrived(const httplib::Request& request) {
    const MutexLock lock(mutex);
    highest = std::max(highest, ++inProgress);
    clientPorts.insert(request.remote_port);
    for (const std::string& path : std::set{request.target, request.path}) {
      ++seen[path].count;
      seen[path].last.headers = request.headers;
    }
    changed.notify_all();
  }

  // The answer, after the latency; empty when the server ends meanwhile.
  Answer AwaitAnswer(const httplib::Request& request) {
    if (!Pause(latency)) return {};
    const MutexLock lock(mutex);
    for (; !ended; changed.wait(mutex)) {
      if (const Answer answer = AnswerTo(request)) return answer;
    }
    return {};
  }

  Answer AnswerTo(const httplib::Request& request) const FEEDLOOM_REQUIRES(mutex) {
    for (const std::string& path : {request.target, request.path}) {
      if (const auto found = answers.find(path); found != answers.end()) return found->second;
    }
    return [](auto&, auto& response) { response.status = 404; };
  }

  httplib::Server server;
  int port = 0;
  std::atomic<bool> poolStands = false;
  std::atomic<std::chrono::milliseconds> latency{};
  std::thread listener;

  Mutex mutex;
  std::condition_variable_any changed;
  bool ended FEEDLOOM_GUARDED_BY(mutex) = false;
  std::map<std::string, Answer> answers FEEDLOOM_GUARDED_BY(mutex);
  std::map<std::string, Seen> seen FEEDLOOM_GUARDED_BY(mutex);
  std::set<int> clientPorts FEEDLOOM_GUARDED_BY(mutex);
  int inProgress FEEDLOOM_GUARDED_BY(mutex) = 0;
  int highest FEEDLOOM_GUARDED_BY(mutex) = 0;
  int unchanged FEEDLOOM_GUARDED_BY(mutex) = 0;
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
  impl_->Put(path, [=](const httplib::Request& request, httplib::Response& response) {
    const bool isProxy = status == 407;
    const bool knows = request.get_header_value(isProxy ? "Proxy-Authorization"
                                                        : "Authorization") == "Basic " + login;
    SetBody(response, knows ? html : "no entry", "text/html");
    if (knows) return;
    response.status = status;
    response.set_header(isProxy ? "Proxy-Authenticate" : "WWW-Authenticate",
                        "Basic realm=\"the realm\"");
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
  const MutexLock lock(impl_->mutex);
  return impl_->unchanged;
}

int FeedServer::Connections() const {
  const MutexLock lock(impl_->mutex);
  return static_cast<int>(impl_->clientPorts.size());
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
  const MutexLock lock(impl_->mutex);
  return impl_->seen[path].count;
}

int FeedServer::HighestConcurrency() const {
  const MutexLock lock(impl_->mutex);
  return impl_->highest;
}

bool FeedServer::WaitForRequest(const std::string& path, std::chrono::milliseconds timeout,
                                int count) const {
  const auto deadline = steady_clock::now() + timeout;
  const MutexLock lock(impl_->mutex);
  const int& arrived = impl_->seen[path].count;
  while (arrived < count &&
         impl_->changed.wait_until(impl_->mutex, deadline) != std::cv_status::timeout) {
  }
  return arrived >= count;
}

std::string FeedServer::LastHeader(const std::string& path, const std::string& name) const {
  const MutexLock lock(impl_->mutex);
  return impl_->seen[path].last.get_header_value(name);
}

}  // namespace feedloom
