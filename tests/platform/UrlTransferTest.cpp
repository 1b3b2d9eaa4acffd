#include <gtest/gtest.h>
#include <stdlib.h>

#include <algorithm>
#include <latch>
#include <memory>
#include <thread>
#include <vector>

#include "kit/FeedServer.h"
#include "kit/TempFolder.h"
#include "platform/UrlDownload.h"
#include "platform/UrlTransfer.h"

namespace feedloom {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

class UrlTransferTest : public testing::Test {
 protected:
  TransferResult Download(const std::string& address, const ProxySettings& proxy = {}) const {
    return UrlDownloadToFile({.address = address, .web = {.proxy = proxy}},
                             folder_.File("feed.xml"), {});
  }

  std::string Downloaded() const { return folder_.Read("feed.xml"); }

  // The content of `address`, or the failure's text.
  std::string Fetch(const std::string& address, const ProxySettings& proxy = {}) const {
    const TransferResult result = Download(address, proxy);
    return result.ok ? Downloaded() : result.error;
  }

  const TempFolder folder_;
  FeedServer server_;
};

TransferRequest RequestTo(const std::string& address) {
  TransferRequest request;
  request.address = address;
  return request;
}

TransferResult RunInto(std::string& content, TransferRequest request) {
  request.sink = [&content](std::string_view bytes) {
    content += bytes;
    return true;
  };
  return RunTransfer(request, {});
}

TEST_F(UrlTransferTest, StoresTheContentInTheFile) {
  const std::string bytes("<rss>\0\xFF</rss>", 13);
  folder_.Write("feed.xml", "an older and much longer content");
  server_.Serve("/feed.xml", bytes);
  const TransferResult result = Download(server_.Url("/feed.xml"));
  EXPECT_TRUE(result.ok) << result.error;
  EXPECT_EQ(result.status, 200);
  EXPECT_EQ(result.error, "");
  EXPECT_EQ(Downloaded(), bytes);
}

TEST_F(UrlTransferTest, AnEmptyContentIsASuccess) {
  server_.Serve("/empty", "");
  EXPECT_TRUE(Download(server_.Url("/empty")).ok);
  EXPECT_EQ(Downloaded(), "");
}

TEST_F(UrlTransferTest, AStatusOf400OrMoreIsAFailure) {
  for (const int status : {400, 404, 410, 500, 503}) {
    server_.Fail("/feed.xml", status);
    const TransferResult result = Download(server_.Url("/feed.xml"));
    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.status, status);
    EXPECT_NE(result.error, "");
  }
}

TEST_F(UrlTransferTest, DecodesACompressedTransfer) {
  const std::string text(300'000, 'x');
  server_.Compressed("/feed.xml", text);
  EXPECT_EQ(Fetch(server_.Url("/feed.xml")), text);
  EXPECT_NE(server_.LastHeader("/feed.xml", "Accept-Encoding").find("gzip"), std::string::npos);
}

TEST_F(UrlTransferTest, ReadsAnAnswerThatComesInPieces) {
  server_.SlowDrip("/feed.xml", "<rss></rss>", 1ms);
  EXPECT_EQ(Fetch(server_.Url("/feed.xml")), "<rss></rss>");
}

TEST_F(UrlTransferTest, AnAnswerThatBreaksOffIsAFailure) {
  server_.BreakOff("/feed.xml", "<rss>");
  EXPECT_FALSE(Download(server_.Url("/feed.xml")).ok);
}

TEST_F(UrlTransferTest, AnAnswerOfMoreThan64MebibytesIsAFailure) {
  server_.Endless("/feed.xml");
  EXPECT_FALSE(Download(server_.Url("/feed.xml")).ok);
  EXPECT_LE(Downloaded().size(), 64u << 20);
}

TEST_F(UrlTransferTest, TheLimitHoldsForTheDecodedContent) {
  server_.Compressed("/feed.xml", std::string((64 << 20) + 1, 'x'));
  EXPECT_FALSE(Download(server_.Url("/feed.xml")).ok);
  EXPECT_LE(Downloaded().size(), 64u << 20);
}

TEST_F(UrlTransferTest, FollowsTenRedirectsAndNoMore) {
  server_.Serve("/hop0", "there");
  for (int hop = 1; hop <= 11; ++hop) {
    server_.Redirect("/hop" + std::to_string(hop), "/hop" + std::to_string(hop - 1));
  }
  EXPECT_EQ(Fetch(server_.Url("/hop10")), "there");
  EXPECT_EQ(Download(server_.Url("/hop10")).address, server_.Url("/hop0"));
  EXPECT_FALSE(Download(server_.Url("/hop11")).ok);
}

TEST_F(UrlTransferTest, NeverFollowsARedirectOutOfTheWeb) {
  const std::string secret = folder_.Write("secret.txt", "SECRET");
  for (const std::string& target : {"file://" + secret, "file:" + secret,
                                    std::string("ftp://127.0.0.1/x"), std::string("dict://x/")}) {
    server_.Redirect("/feed.xml", target);
    EXPECT_FALSE(Download(server_.Url("/feed.xml")).ok) << target;
    EXPECT_EQ(Downloaded(), "");
  }
}

TEST_F(UrlTransferTest, ReadsALocalFileOnlyWhereThatIsAllowed) {
  const std::string address = "file://" + folder_.Write("my%20feed.xml", "<rss/>");
  folder_.Write("my feed.xml", "<local/>");
  EXPECT_EQ(Fetch(address), "<local/>");
  EXPECT_FALSE(Download("file://" + folder_.File("missing.xml")).ok);

  std::string content;
  EXPECT_FALSE(RunInto(content, RequestTo(address)).ok);
  EXPECT_EQ(content, "");
}

TEST_F(UrlTransferTest, FailsOnAddressesThatCannotBeReached) {
  const std::string closed = FeedServer().Url("/feed.xml");
  for (const std::string& address :
       {closed, std::string(), std::string("no address at all"), std::string("http://"),
        std::string("ftp://127.0.0.1/feed.xml")}) {
    const TransferResult result = Download(address);
    EXPECT_FALSE(result.ok) << address;
    EXPECT_EQ(result.status, 0) << address;
    EXPECT_NE(result.error, "") << address;
  }
}

TEST_F(UrlTransferTest, FailsWhenTheServerEndsBeforeItAnswers) {
  auto server = std::make_unique<FeedServer>();
  server->Hang("/feed.xml");
  TransferResult result;
  std::jthread worker([&, address = server->Url("/feed.xml")] { result = Download(address); });
  EXPECT_TRUE(server->WaitForRequest("/feed.xml"));
  server.reset();
  worker.join();
  EXPECT_FALSE(result.ok);
}

TEST_F(UrlTransferTest, FailsWhenTheFileCannotBeWritten) {
  server_.Serve("/feed.xml", "<rss/>");
  for (const std::string& path : {folder_.File("missing/feed.xml"), std::string("/dev/full")}) {
    const TransferResult result = UrlDownloadToFile(RequestTo(server_.Url("/feed.xml")), path, {});
    EXPECT_FALSE(result.ok) << path;
    EXPECT_NE(result.error, "") << path;
  }
}

TEST_F(UrlTransferTest, EndsWhenTheSinkHasEnough) {
  server_.Endless("/feed.xml");
  int calls = 0;
  TransferRequest request = RequestTo(server_.Url("/feed.xml"));
  request.sink = [&calls](std::string_view) { return ++calls < 3; };
  EXPECT_FALSE(RunTransfer(request, {}).ok);
  EXPECT_EQ(calls, 3);
}

TEST_F(UrlTransferTest, PostsAForm) {
  server_.Echo("/search");
  TransferRequest request = RequestTo(server_.Url("/search"));
  request.form = "q=%B0%A1&page=2";
  std::string content;
  EXPECT_TRUE(RunInto(content, request).ok);
  EXPECT_EQ(content, "q=%B0%A1&page=2");
  EXPECT_EQ(server_.LastHeader("/search", "Content-Type"), "application/x-www-form-urlencoded");
}

TEST_F(UrlTransferTest, TellsWhatItIsDoing) {
  server_.Redirect("/old.xml", "/feed.xml");
  server_.Serve("/feed.xml", "<rss/>");
  std::vector<TransferEvent> events;
  std::string content;
  TransferRequest request = RequestTo(server_.Url("/old.xml"));
  request.onEvent = [&events](TransferEvent event, std::string_view host) {
    events.push_back(event);
    EXPECT_EQ(host, "127.0.0.1");
  };
  ASSERT_TRUE(RunInto(content, request).ok);
  const std::vector steps{
      TransferEvent::Created,          TransferEvent::Connecting,  TransferEvent::RequestSent,
      TransferEvent::ResponseReceived, TransferEvent::Redirecting, TransferEvent::RequestSent,
      TransferEvent::ResponseReceived, TransferEvent::Complete,    TransferEvent::ConnectionClosed};
  std::size_t step = 0;
  for (const TransferEvent event : events) step += step < steps.size() && event == steps[step];
  EXPECT_EQ(step, steps.size()) << "the steps in this order, others between them";

  events.clear();
  server_.Fail("/feed.xml", 404);
  ASSERT_FALSE(RunInto(content, request).ok);
  EXPECT_EQ(std::ranges::count(events, TransferEvent::Complete), 0);
}

class StoppedTransferTest : public UrlTransferTest {
 protected:
  // How long a transfer goes on after a stop that comes while nothing happens: with the request
  // sent, or with `received` bytes of the answer here. The best of a few, since the machine may be
  // busy.
  steady_clock::duration TimeToStop(std::ptrdiff_t received) {
    auto best = steady_clock::duration::max();
    for (int attempt = 1; attempt <= 3; ++attempt) {
      std::latch arrived(received);
      TransferRequest request = RequestTo(server_.Url("/feed.xml"));
      request.sink = [&arrived](std::string_view bytes) {
        arrived.count_down(static_cast<std::ptrdiff_t>(bytes.size()));
        return true;
      };
      TransferResult result;
      std::jthread worker([&](std::stop_token stop) { result = RunTransfer(request, stop); });
      EXPECT_TRUE(server_.WaitForRequest("/feed.xml", 20s, attempt));
      arrived.wait();
      const auto start = steady_clock::now();
      worker.request_stop();
      worker.join();
      best = std::min(best, steady_clock::now() - start);
      EXPECT_FALSE(result.ok);
      EXPECT_NE(result.error, "");
    }
    return best;
  }
};

TEST_F(StoppedTransferTest, EndsAtOnceWhileTheServerIsSilent) {
  server_.Hang("/feed.xml");
  EXPECT_LT(TimeToStop(0), 100ms);
}

TEST_F(StoppedTransferTest, EndsAtOnceBetweenTwoBytes) {
  server_.SlowDrip("/feed.xml", "<rss/>", 1h);
  EXPECT_LT(TimeToStop(1), 100ms);
}

TEST_F(StoppedTransferTest, AStopThatCameBeforeSendsNoRequest) {
  server_.Serve("/feed.xml", "<rss/>");
  std::stop_source stop;
  stop.request_stop();
  EXPECT_FALSE(UrlDownloadToFile(RequestTo(server_.Url("/feed.xml")), folder_.File("feed.xml"),
                                 stop.get_token())
                   .ok);
  EXPECT_EQ(server_.Requests("/feed.xml"), 0);
}

TEST_F(StoppedTransferTest, ManyTransfersRunAndStopSideBySide) {
  constexpr int kTransfers = 8;
  server_.Hang("/hang");
  server_.Serve("/feed.xml", "<rss/>");
  std::vector<std::jthread> workers;
  for (int i = 0; i < kTransfers; ++i) {
    workers.emplace_back([this, i](std::stop_token stop) {
      const std::string number = std::to_string(i);
      EXPECT_TRUE(
          UrlDownloadToFile(RequestTo(server_.Url("/feed.xml")), folder_.File(number), stop).ok);
      EXPECT_FALSE(
          UrlDownloadToFile(RequestTo(server_.Url("/hang")), folder_.File(number), stop).ok);
    });
  }
  EXPECT_TRUE(server_.WaitForRequest("/hang", 20s, kTransfers));
  EXPECT_EQ(server_.HighestConcurrency(), kTransfers);
  workers.clear();
  EXPECT_EQ(server_.Requests("/feed.xml"), kTransfers);
}

class ProxiedTransferTest : public UrlTransferTest {
 protected:
  static std::string Address(const FeedServer& server) {
    return "127.0.0.1:" + std::to_string(server.Port());
  }

  FeedServer proxy_;
};

TEST_F(ProxiedTransferTest, GoesThroughTheProxyOfTheSettings) {
  proxy_.Serve("http://news.example/feed.xml", "through the proxy");
  EXPECT_EQ(Fetch("http://news.example/feed.xml", {true, Address(proxy_), ""}),
            "through the proxy");
  EXPECT_EQ(Fetch("http://news.example/feed.xml", {true, "https=x:1;http=" + Address(proxy_), ""}),
            "through the proxy");
}

TEST_F(ProxiedTransferTest, ReachesBypassedHostsAndDisabledProxiesDirectly) {
  server_.Serve("/feed.xml", "direct");
  EXPECT_EQ(Fetch(server_.Url("/feed.xml"), {true, Address(proxy_), "x.example;127.0.0.1"}),
            "direct");
  EXPECT_EQ(Fetch(server_.Url("/feed.xml"), {true, Address(proxy_), "<local>"}), "direct");
  EXPECT_EQ(Fetch(server_.Url("/feed.xml"), {true, Address(proxy_), "*"}), "direct");
  EXPECT_EQ(Fetch(server_.Url("/feed.xml"), {false, Address(proxy_), ""}), "direct");
}

TEST_F(ProxiedTransferTest, TheEnvironmentHasNoSay) {
  constexpr const char* kNames[] = {"http_proxy", "all_proxy", "ALL_PROXY", "no_proxy", "NO_PROXY"};
  for (const char* name : kNames) setenv(name, Address(proxy_).c_str(), 1);
  setenv("no_proxy", "*", 1);
  server_.Serve("/feed.xml", "direct");
  proxy_.Serve("http://news.example/feed.xml", "through the proxy");
  EXPECT_EQ(Fetch(server_.Url("/feed.xml")), "direct");
  EXPECT_EQ(Fetch("http://news.example/feed.xml", {true, Address(proxy_), ""}),
            "through the proxy");
  EXPECT_EQ(proxy_.Requests(server_.Url("/feed.xml")), 0);
  for (const char* name : kNames) unsetenv(name);
}

}  // namespace
}  // namespace feedloom
