#include <stdlib.h>

#include <algorithm>
#include <filesystem>
#include <thread>

#include "kit/FeedServer.h"
#include "kit/TempFolder.h"
#include "platform/Rows.h"
#include "platform/UrlDownload.h"
#include "platform/UrlPool.h"

namespace feedloom {
namespace {

using namespace std::chrono_literals;

class UrlTransferTest : public testing::Test {
 protected:
  // What stands in a file after `address` was loaded into it; of a failure the HTTP status.
  std::string Load(const std::string& address, const ProxySettings& proxy = {}) const {
    const std::string path = folder_.Write("file", "an older and longer content");
    const auto result = UrlDownloadToFile({.address = address, .web = {.proxy = proxy}}, path, {});
    EXPECT_EQ(result.error.empty(), result.ok) << address;
    return result.ok ? folder_.Read("file") : "failed: " + std::to_string(result.status);
  }

  // Runs a request whose content nobody wants.
  static TransferResult Run(TransferRequest request, std::stop_token stop = {}) {
    if (!request.sink) request.sink = [](auto) { return true; };
    return RunTransfer(request, stop);
  }

  std::string File(const std::string& name) const { return "file://" + folder_.File(name); }

  const TempFolder folder_;
  FeedServer server_;
};

TEST_F(UrlTransferTest, GivesTheContentOrAFailure) {
  for (const int status : {400, 503}) server_.Fail("/" + std::to_string(status), status);
  server_.SlowDrip("/slow", "<rss></rss>", 1ms);
  server_.BreakOff("/broken", "<rss>");
  server_.Serve("/0", "");
  const auto hop = [](int number) { return "/" + std::to_string(number); };
  for (int i = 1; i <= 11; ++i) server_.Redirect(hop(i), hop(i - 1));
  server_.Redirect("/to-ftp", "ftp://127.0.0.1/x");
  server_.Redirect("/to-file", File("my%20feed"));
  folder_.Write("my feed", "<local/>");
  const std::string closed = FeedServer().Url("/closed");
  ExpectRows([this](auto& path) { return Load(path[0] == '/' ? server_.Url(path) : path); },
             {"/0 -> ", "/slow -> <rss></rss>", "/10 -> ", "/11 -> failed: 302",
              "/broken -> failed: 200", "/to-ftp -> failed: 302", "/to-file -> failed: 302",
              "/400 -> failed: 400", "/503 -> failed: 503", "/none -> failed: 404",
              File("my%20feed") + " -> <local/>", File("missing") + " -> failed: 0",
              server_.Url("/0").substr(7) + " -> ", closed + " -> failed: 0", " -> failed: 0",
              "ftp://127.0.0.1/x -> failed: 0", "no address -> failed: 0", "http:// -> failed: 0"});
  EXPECT_EQ(Run({.address = server_.Url("/10")}).address, server_.Url("/0"));
  EXPECT_FALSE(Run({.address = File("my%20feed")}).ok) << "not allowed";
  const auto full = UrlDownloadToFile({.address = server_.Url("/slow")}, "/dev/full", {});
  EXPECT_TRUE(!full.ok && full.error.starts_with("cannot write the file"));
  EXPECT_FALSE(UrlDownloadToFile({.address = closed}, folder_.File("missing/file"), {}).ok);
}

TEST_F(UrlTransferTest, GivesEveryByteOf64MebibytesAndNoMore) {
  constexpr std::size_t kMost = 64 << 20;
  const std::string bytes = std::string("<rss>\0\xFF</rss>", 13) + std::string(300'000, 'x');
  server_.Compressed("/feed", bytes);
  EXPECT_EQ(Load(server_.Url("/feed")), bytes);
  server_.Compressed("/feed", std::string(kMost + 1, 'x'));
  EXPECT_EQ(Run({.address = server_.Url("/feed")}).error, "longer than 67108864 bytes");
  folder_.Write("feed", "");
  for (const auto& [size, result] : {std::pair(kMost, kMost), std::pair(kMost + 1, 9ul)}) {
    std::filesystem::resize_file(folder_.File("feed"), size);
    EXPECT_EQ(Load(File("feed")).size(), result) << "or that of \"failed: 0\"";
  }
  server_.Endless("/feed");
  EXPECT_FALSE(Run({.address = server_.Url("/feed"), .sink = [](auto) { return false; }}).ok);
}

TEST_F(UrlTransferTest, PostsAFormAndTellsItsSteps) {
  server_.Redirect("/old", "/form", 307);
  server_.Echo("/form");
  std::vector<TransferEvent> steps;
  std::string content;
  TransferRequest request{.address = server_.Url("/old"), .form = "q=%B0%A1&page=2"};
  request.sink = [&](auto bytes) { return content += bytes, true; };
  request.onEvent = [&](TransferEvent step, std::string_view) { steps.push_back(step); };
  EXPECT_TRUE(Run(request).ok);
  EXPECT_EQ(content, "q=%B0%A1&page=2");
  EXPECT_EQ(server_.LastHeader("/form", "Content-Type"), "application/x-www-form-urlencoded");
  using enum TransferEvent;
  EXPECT_EQ(steps, (std::vector{Created, ResolvingName, NameResolved, Connecting, Connected,
                                SendingRequest, RequestSent, ResponseReceived, Redirecting,
                                NameResolved, Connecting, Connected, SendingRequest, RequestSent,
                                ResponseReceived, ClosingConnection, Complete, ConnectionClosed}));
  request.address = server_.Url("/none");
  EXPECT_FALSE(Run(request).ok);
  EXPECT_EQ(std::ranges::count(steps, Complete), 1);
}

TEST_F(UrlTransferTest, AsksForNewContentOnOneConnectionAndHeedsWhatTheServerWants) {
  TransferPool pool;
  const Validators version{"\"v1\"", "Sat, 21 Nov 2026 12:00:00 GMT"};
  TransferRequest request{.address = server_.Url("/feed"), .pool = &pool};
  server_.KeepConnections();
  server_.ServeVersion("/feed", "x", version.etag, version.lastModified);
  EXPECT_EQ(Run(request).validators, version);
  request.known = version;
  EXPECT_EQ(Run(request).status, 304);
  EXPECT_EQ(server_.Connections(), 1);
  pool.CloseIdle();
  request.known = {"\"v1\"\r\nX-Injected: 1"};
  EXPECT_EQ(Run(request).status, 200);
  EXPECT_EQ(server_.Connections(), 2);
  server_.ServeVersion("/feed", "x", std::string(1025, 'v'));
  EXPECT_TRUE(Run(request).validators.AreEmpty());
  for (const auto& [wish, decades] :
       {std::pair("400000000", 1), std::pair("Fri, 31 Dec 2100 00:00:00 GMT", 7),
        std::pair("-5", 0)}) {
    server_.Busy("/feed", 503, wish);
    EXPECT_EQ(Run(request).retryAfter / (3650 * 24h), decades) << wish;
  }
}

TEST_F(UrlTransferTest, ManyRunSideBySideAndAStopEndsThemAtOnce) {
  server_.Hang("/silent");
  server_.SlowDrip("/drip", "<rss/>", 1h);
  std::stop_source before;
  before.request_stop();
  EXPECT_EQ(Run({.address = server_.Url("/silent")}, before.get_token()).error, "stopped");
  EXPECT_EQ(server_.Requests("/silent"), 0);
  // A busy machine may need several attempts; without the wake-up none of them is so quick.
  std::chrono::nanoseconds took = 1s;
  for (int attempt = 1; attempt <= 10 && took > 100ms; ++attempt) {
    std::vector<std::jthread> workers;
    for (const char* path : {"/silent", "/silent", "/drip", "/drip"}) {
      workers.emplace_back([url = server_.Url(path)](std::stop_token stop) {
        EXPECT_EQ(Run({.address = url}, stop).error, "stopped");
      });
    }
    EXPECT_TRUE(server_.WaitForRequest("/silent", 20s, 2 * attempt));
    EXPECT_TRUE(server_.WaitForRequest("/drip", 20s, 2 * attempt));
    const auto start = std::chrono::steady_clock::now();
    for (std::jthread& worker : workers) worker.request_stop();
    workers.clear();
    took = std::chrono::steady_clock::now() - start;
  }
  EXPECT_LE(took, 100ms);
  EXPECT_GE(server_.HighestConcurrency(), 2);
}

TEST_F(UrlTransferTest, FailsWhenTheServerEndsBeforeItAnswers) {
  auto server = std::make_unique<FeedServer>();
  server->Hang("/x");
  const std::jthread worker([url = server->Url("/x")] { EXPECT_FALSE(Run({.address = url}).ok); });
  EXPECT_TRUE(server->WaitForRequest("/x"));
  server.reset();
}

TEST_F(UrlTransferTest, GoesThroughTheUsersProxyWhateverTheEnvironmentSays) {
  FeedServer proxy;
  const std::string far = "http://news.example/feed", near = server_.Url("/feed");
  const std::string at = "127.0.0.1:" + std::to_string(proxy.Port());
  server_.Serve("/feed", "direct");
  proxy.Serve(far, "proxied");
  for (const std::string name : {"http_proxy", "ALL_PROXY", "no_proxy"}) {
    setenv(name.c_str(), name == "no_proxy" ? "*" : "127.0.0.1:1", 1);
    for (const std::string& list : {at, "https=x:1;http=" + at}) {
      EXPECT_EQ(Load(far, {true, list, ""}), "proxied") << list;
    }
    for (const char* bypass : {"x.example;127.0.0.1", "<local>", "*"}) {
      EXPECT_EQ(Load(near, {true, at, bypass}), "direct") << bypass;
    }
    EXPECT_EQ(Load(near, {false, at, ""}), "direct");
    unsetenv(name.c_str());
  }
}

}  // namespace
}  // namespace feedloom
