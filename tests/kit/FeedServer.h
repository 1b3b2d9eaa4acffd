// A web server on 127.0.0.1 that serves what a test tells it to, well or badly.
#pragma once

#include <chrono>
#include <memory>
#include <string>

namespace feedloom {

// Serves from the constructor to the destructor, which ends at once: answers under way are broken
// off, requests that wait for one get a 503. Any thread may call it.
//
// A path is what stands in the request line: "/feed.xml", "/search?q=x", or a whole address when
// the server is used as a proxy. What is served at "/search" answers "/search?q=x" as well unless
// that path has an answer of its own, and both names see the request. GET and POST get the same
// answer. A later answer for a path replaces the earlier one; a path without an answer gets 404.
class FeedServer {
 public:
  FeedServer();
  ~FeedServer();
  FeedServer(const FeedServer&) = delete;
  FeedServer& operator=(const FeedServer&) = delete;

  int Port() const;
  std::string Url(const std::string& path) const;  // "http://127.0.0.1:<port>" and `path`

  void Serve(const std::string& path, const std::string& bytes,
             const std::string& contentType = "text/xml");
  void Compressed(const std::string& path, const std::string& bytes);  // in transfer
  void Redirect(const std::string& path, const std::string& toUrl, int status = 302);  // any URL
  void Fail(const std::string& path, int status, const std::string& retryAfter = {});
  // HTML for who sends the Basic login `login`, in base64, in the header of `status`: 401 for a
  // server, 407 for a proxy. Others get "no entry" with that status, of the realm "the realm".
  void Protect(const std::string& path, const std::string& html, const std::string& login,
               int status = 401);
  // The same for any challenge of RFC 9110, and who sends `answer` in the header.
  void Challenge(const std::string& path, const std::string& html, const std::string& challenge,
                 const std::string& answer, int status = 401);
  // The content for who sends the cookie "seen=1"; others get it with a redirect to the same path.
  void WantCookie(const std::string& path, const std::string& bytes);
  // The content with its validators; 304 for a request that has the ETag or, without one, the date.
  void ServeVersion(const std::string& path, const std::string& bytes, const std::string& etag,
                    const std::string& lastModified = "");
  void Echo(const std::string& path);  // the request's own body
  // No answer until the server ends or the path is given another answer, which they then get.
  void Hang(const std::string& path);
  // Bytes without end: 256 MiB as fast as the client takes them, and then no more.
  void Endless(const std::string& path);
  void BreakOff(const std::string& path, const std::string& bytes);  // announces more than these

  // From now on connections stay open for further requests. An idle one may hold up the
  // destructor for a second.
  void KeepConnections();

  // From now on each answer begins so long after its request has arrived.
  void SetLatency(std::chrono::milliseconds latency);

  int Requests(const std::string& path) const;  // that have arrived so far
  int Unchanged() const;                        // of these, those that were answered with a 304
  int Connections() const;                      // on which requests have come so far
  // The most requests that were in progress at one time. A request is in progress from its arrival
  // until its answer begins.
  int HighestConcurrency() const;
  // Blocks until `count` requests to `path` have arrived, now or before; false when they don't.
  [[nodiscard]] bool WaitForRequest(const std::string& path,
                                    std::chrono::milliseconds timeout = std::chrono::seconds(20),
                                    int count = 1) const;
  // Of the latest request to `path`; "" without one.
  std::string LastHeader(const std::string& path, const std::string& name) const;

 private:
  struct Impl;
  const std::unique_ptr<Impl> impl_;
};

}  // namespace feedloom
