#include "kit/FeedServer.h"

#include <httplib.h>
#include <sys/socket.h>
#include <zlib.h>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <functional>
#include <map>
#include <set>
#include <stdexcept>
#include <thread>
#include <vector>

#include "platform/Mutex.h"

namespace feedloom {
namespace {

using std::chrono::steady_clock;

constexpr const char* kXml = "text/xml";
constexpr int kOk = 200;
constexpr int kNotModified = 304;
constexpr int kNotFound = 404;
constexpr int kServiceUnavailable = 503;

// Sends `bytes` as they are: the library's own way compresses them when the client takes it.
void SetBody(httplib::Response& response, const std::string& bytes, const std::string& type) {
  if (bytes.empty()) return response.set_content(bytes, type);
  response.set_content_provider(
      bytes.size(), type, [bytes](std::size_t offset, std::size_t length, httplib::DataSink& sink) {
        return sink.write(bytes.data() + offset, length);
      });
}

std::string Gzip(std::string bytes) {
  constexpr int kGzipWindow = MAX_WBITS + 16;
  z_stream stream{};
  deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, kGzipWindow, 8, Z_DEFAULT_STRATEGY);
  std::string packed(deflateBound(&stream, bytes.size()), '\0');
  stream.next_in = reinterpret_cast<Bytef*>(bytes.data());
  stream.avail_in = static_cast<uInt>(bytes.size());
  stream.next_out = reinterpret_cast<Bytef*>(packed.data());
  stream.avail_out = static_cast<uInt>(packed.size());
  deflate(&stream, Z_FINISH);
  packed.resize(stream.total_out);
  deflateEnd(&stream);
  return packed;
}

}  // namespace

class FeedServer::Impl {
 public:
  // Fills in the answer; none means that there is no answer yet.
  using Answer = std::function<void(const httplib::Request&, httplib::Response&)>;

  Impl() {
    const auto handle = [this](const httplib::Request& request, httplib::Response& response) {
      Handle(request, response);
    };
    server_.Get(".*", handle);
    server_.Post(".*", handle);
    Start();
  }

  ~Impl() {
    {
      const MutexLock lock(mutex_);
      ended_ = true;
      changed_.notify_all();
    }
    server_.stop();
    listener_.join();
  }

  int Port() const { return port_; }

  void Put(const std::string& path, Answer answer) {
    const MutexLock lock(mutex_);
    answers_[path] = std::move(answer);
    changed_.notify_all();
  }

  void SetLatency(std::chrono::milliseconds latency) {
    const MutexLock lock(mutex_);
    latency_ = latency;
  }

  void KeepConnections() {
    constexpr std::size_t kMany = 10'000;
    server_.set_keep_alive_timeout(1);
    server_.set_keep_alive_max_count(kMany);
  }

  int Unchanged() const {
    const MutexLock lock(mutex_);
    return unchanged_;
  }

  int Connections() const {
    const MutexLock lock(mutex_);
    return static_cast<int>(clientPorts_.size());
  }

  // True when the pause was over before the server's end.
  bool Pause(std::chrono::milliseconds duration) const {
    const auto deadline = steady_clock::now() + duration;
    const MutexLock lock(mutex_);
    while (!ended_ && changed_.wait_until(mutex_, deadline) != std::cv_status::timeout) {
    }
    return !ended_;
  }

  bool Ended() const {
    const MutexLock lock(mutex_);
    return ended_;
  }

  int Requests(const std::string& path) const {
    const MutexLock lock(mutex_);
    return CountOf(path);
  }

  int HighestConcurrency() const {
    const MutexLock lock(mutex_);
    return highest_;
  }

  bool WaitForRequest(const std::string& path, std::chrono::milliseconds timeout, int count) const {
    const auto deadline = steady_clock::now() + timeout;
    const MutexLock lock(mutex_);
    while (CountOf(path) < count) {
      if (changed_.wait_until(mutex_, deadline) == std::cv_status::timeout) {
        return CountOf(path) >= count;
      }
    }
    return true;
  }

  httplib::Request Last(const std::string& path) const {
    const MutexLock lock(mutex_);
    const auto seen = seen_.find(path);
    return seen == seen_.end() ? httplib::Request() : seen->second.last;
  }

 private:
  struct Seen {
    int count = 0;
    httplib::Request last;
  };

  void Start() {
    constexpr int kThreads = 32;
    constexpr int kBacklog = 256;
    server_.new_task_queue = [this] {
      auto* const pool = new httplib::ThreadPool(kThreads);
      poolStands_ = true;
      poolStands_.notify_one();
      return pool;
    };
    server_.set_keep_alive_max_count(1);
    int socket = -1;
    server_.set_socket_options([&socket](int created) { socket = created; });
    port_ = server_.bind_to_any_port("127.0.0.1");
    // The library's own queue of five drops connections when many threads connect at once.
    if (port_ < 0 || listen(socket, kBacklog) != 0)
      throw std::runtime_error("no port to listen on");
    listener_ = std::thread([this] { server_.listen_after_bind(); });
    // The library calls itself running before its threads are there; a test may count threads.
    poolStands_.wait(false);
  }

  void Handle(const httplib::Request& request, httplib::Response& response) {
    Arrived(request);
    response.status = kServiceUnavailable;
    if (const Answer answer = AwaitAnswer(request)) {
      response.status = kOk;
      answer(request, response);
    }
    const MutexLock lock(mutex_);
    --inProgress_;
    if (response.status == kNotModified) ++unchanged_;
  }

  void Arrived(const httplib::Request& request) {
    const MutexLock lock(mutex_);
    highest_ = std::max(highest_, ++inProgress_);
    clientPorts_.insert(request.remote_port);
    Remember(request.target, request);
    if (request.path != request.target) Remember(request.path, request);
    changed_.notify_all();
  }

  void Remember(const std::string& path, const httplib::Request& request)
      FEEDLOOM_REQUIRES(mutex_) {
    Seen& seen = seen_[path];
    ++seen.count;
    seen.last.headers = request.headers;
    seen.last.body = request.body;
  }

  // The answer, after the latency; none when the server ends meanwhile.
  Answer AwaitAnswer(const httplib::Request& request) {
    if (!Pause(Latency())) return {};
    const MutexLock lock(mutex_);
    for (;;) {
      if (ended_) return {};
      if (const Answer answer = AnswerTo(request)) return answer;
      changed_.wait(mutex_);
    }
  }

  Answer AnswerTo(const httplib::Request& request) const FEEDLOOM_REQUIRES(mutex_) {
    for (const std::string& path : {request.target, request.path}) {
      if (const auto found = answers_.find(path); found != answers_.end()) return found->second;
    }
    return
        [](const httplib::Request&, httplib::Response& response) { response.status = kNotFound; };
  }

  std::chrono::milliseconds Latency() const {
    const MutexLock lock(mutex_);
    return latency_;
  }

  int CountOf(const std::string& path) const FEEDLOOM_REQUIRES(mutex_) {
    const auto seen = seen_.find(path);
    return seen == seen_.end() ? 0 : seen->second.count;
  }

  httplib::Server server_;
  int port_ = 0;
  std::atomic<bool> poolStands_ = false;
  std::thread listener_;

  mutable Mutex mutex_;
  mutable std::condition_variable_any changed_;
  bool ended_ FEEDLOOM_GUARDED_BY(mutex_) = false;
  std::chrono::milliseconds latency_ FEEDLOOM_GUARDED_BY(mutex_){0};
  std::map<std::string, Answer> answers_ FEEDLOOM_GUARDED_BY(mutex_);
  std::map<std::string, Seen> seen_ FEEDLOOM_GUARDED_BY(mutex_);
  int inProgress_ FEEDLOOM_GUARDED_BY(mutex_) = 0;
  int unchanged_ FEEDLOOM_GUARDED_BY(mutex_) = 0;
  std::set<int> clientPorts_ FEEDLOOM_GUARDED_BY(mutex_);
  int highest_ FEEDLOOM_GUARDED_BY(mutex_) = 0;
};

FeedServer::FeedServer() : impl_(std::make_unique<Impl>()) {}
FeedServer::~FeedServer() = default;

int FeedServer::Port() const { return impl_->Port(); }

std::string FeedServer::Url(const std::string& path) const {
  return "http://127.0.0.1:" + std::to_string(Port()) + path;
}

void FeedServer::Serve(const std::string& path, const std::string& bytes,
                       const std::string& contentType) {
  impl_->Put(path, [=](const httplib::Request&, httplib::Response& response) {
    SetBody(response, bytes, contentType);
  });
}

void FeedServer::Compressed(const std::string& path, const std::string& bytes) {
  impl_->Put(path, [packed = Gzip(bytes)](const httplib::Request&, httplib::Response& response) {
    response.set_header("Content-Encoding", "gzip");
    SetBody(response, packed, kXml);
  });
}

void FeedServer::Redirect(const std::string& path, const std::string& toUrl, int status) {
  impl_->Put(path, [=](const httplib::Request&, httplib::Response& response) {
    response.set_redirect(toUrl, status);
  });
}

void FeedServer::Fail(const std::string& path, int status) {
  impl_->Put(path, [status](const httplib::Request&, httplib::Response& response) {
    response.status = status;
  });
}

void FeedServer::ServeVersion(const std::string& path, const std::string& bytes,
                              const std::string& etag, const std::string& lastModified) {
  impl_->Put(path, [=](const httplib::Request& request, httplib::Response& response) {
    const std::string known = request.get_header_value("If-None-Match");
    const bool isKnown =
        known.empty()
            ? !lastModified.empty() && request.get_header_value("If-Modified-Since") == lastModified
            : known == etag;
    if (!etag.empty()) response.set_header("ETag", etag);
    if (!lastModified.empty()) response.set_header("Last-Modified", lastModified);
    if (isKnown) {
      response.status = kNotModified;
    } else {
      SetBody(response, bytes, kXml);
    }
  });
}

void FeedServer::Busy(const std::string& path, int status, const std::string& retryAfter) {
  impl_->Put(path, [=](const httplib::Request&, httplib::Response& response) {
    response.status = status;
    response.set_header("Retry-After", retryAfter);
  });
}

void FeedServer::KeepConnections() { impl_->KeepConnections(); }

int FeedServer::Unchanged() const { return impl_->Unchanged(); }

int FeedServer::Connections() const { return impl_->Connections(); }

void FeedServer::Echo(const std::string& path) {
  impl_->Put(path, [](const httplib::Request& request, httplib::Response& response) {
    SetBody(response, request.body, "text/plain");
  });
}

void FeedServer::Hang(const std::string& path) { impl_->Put(path, {}); }

void FeedServer::Endless(const std::string& path) {
  constexpr std::size_t kEnd = 256u << 20;
  impl_->Put(path, [this](const httplib::Request&, httplib::Response& response) {
    // A type that the library does not compress.
    response.set_chunked_content_provider(
        "application/octet-stream", [this](std::size_t offset, httplib::DataSink& sink) {
          static const std::string block(1 << 16, 'x');
          if (offset >= kEnd) sink.done();
          return !impl_->Ended() && (offset >= kEnd || sink.write(block.data(), block.size()));
        });
  });
}

void FeedServer::SlowDrip(const std::string& path, const std::string& bytes,
                          std::chrono::milliseconds pause) {
  impl_->Put(path, [=, this](const httplib::Request&, httplib::Response& response) {
    response.set_content_provider(
        bytes.size(), kXml, [=, this](std::size_t offset, std::size_t, httplib::DataSink& sink) {
          return sink.write(bytes.data() + offset, 1) && impl_->Pause(pause);
        });
  });
}

void FeedServer::BreakOff(const std::string& path, const std::string& bytes) {
  constexpr std::size_t kMissing = 1000;
  impl_->Put(path, [bytes](const httplib::Request&, httplib::Response& response) {
    response.set_content_provider(
        bytes.size() + kMissing, kXml,
        [bytes](std::size_t offset, std::size_t, httplib::DataSink& sink) {
          return offset < bytes.size() && sink.write(bytes.data(), bytes.size());
        });
  });
}

void FeedServer::SetLatency(std::chrono::milliseconds latency) { impl_->SetLatency(latency); }

int FeedServer::Requests(const std::string& path) const { return impl_->Requests(path); }

int FeedServer::HighestConcurrency() const { return impl_->HighestConcurrency(); }

bool FeedServer::WaitForRequest(const std::string& path, std::chrono::milliseconds timeout,
                                int count) const {
  return impl_->WaitForRequest(path, timeout, count);
}

std::string FeedServer::LastHeader(const std::string& path, const std::string& name) const {
  return impl_->Last(path).get_header_value(name);
}

std::string FeedServer::LastBody(const std::string& path) const { return impl_->Last(path).body; }

}  // namespace feedloom
