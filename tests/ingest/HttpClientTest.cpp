#include <gtest/gtest.h>

#include <algorithm>

#include "ingest/HttpClient.h"
#include "kit/FeedServer.h"
#include "kit/RequestRecorder.h"
#include "kit/TempFolder.h"

namespace feedloom {
namespace {

class HttpExchange : public testing::Test {
 protected:
  HttpClient Client(StatusLog log = {}) { return HttpClient(registry_, std::move(log)); }

  void UseProxy(const std::string& hostAndPort, bool isEnabled = true) {
    const std::string key =
        R"(HKEY_CURRENT_USER\Software\Microsoft\Windows\CurrentVersion\Internet Settings)";
    ASSERT_TRUE(registry_.WriteString(key, "ProxyServer", hostAndPort));
    ASSERT_TRUE(registry_.WriteDword(key, "ProxyEnable", isEnabled ? 1 : 0));
  }

  std::string HostAndPort() const { return "127.0.0.1:" + std::to_string(server_.Port()); }

  TempFolder folder_;
  Registry registry_{folder_.File("registry.reg")};
  FeedServer server_;
};

TEST_F(HttpExchange, GetsABodyByteForByteWithOrWithoutAScheme) {
  const std::string bytes("a\0\xB0\xA1z", 5);
  server_.Serve("/x", bytes);
  EXPECT_EQ(Client().Get("http://" + HostAndPort() + "/x"), bytes);
  EXPECT_EQ(Client().Get(HostAndPort() + "/x"), bytes);
  server_.Serve("/", "root");
  EXPECT_EQ(Client().Get(HostAndPort()), "root");
}

TEST_F(HttpExchange, AnythingBut200IsEmpty) {
  server_.Fail("/missing", 404);
  server_.Fail("/created", 201);
  EXPECT_EQ(Client().Get(server_.Url("/missing")), "");
  EXPECT_EQ(Client().Get(server_.Url("/created")), "");
  EXPECT_EQ(Client().Get("http://127.0.0.1:1/"), "");
  EXPECT_EQ(Client().Get(""), "");
}

TEST_F(HttpExchange, AnHttpsAddressIsNotSentInTheClear) {
  server_.Serve("/x", "plain");
  EXPECT_EQ(Client().Get("https://" + HostAndPort() + "/x"), "");
  EXPECT_EQ(server_.Requests("/x"), 0);
}

TEST_F(HttpExchange, PostsFormData) {
  server_.Echo("/echo");
  EXPECT_EQ(Client().Post(server_.Url("/echo"), "a=1&b=%EA"), "a=1&b=%EA");
  EXPECT_EQ(server_.LastHeader("/echo", "Content-Type"), "application/x-www-form-urlencoded");
}

TEST_F(HttpExchange, GoesThroughTheUsersProxyOnlyWhileItIsEnabled) {
  FeedServer proxy;
  proxy.Serve("http://feeds.invalid/x", "through the proxy");
  UseProxy("127.0.0.1:" + std::to_string(proxy.Port()), false);
  EXPECT_EQ(Client().Get("http://feeds.invalid/x"), "");
  UseProxy("127.0.0.1:" + std::to_string(proxy.Port()));
  EXPECT_EQ(Client().Get("http://feeds.invalid/x"), "through the proxy");
}

TEST_F(HttpExchange, SendsAQueryByteForByte) {
  RequestRecorder recorder({RequestRecorder::Ok("body")});
  const std::vector<std::string> queries = {
      "str=a b&c=#d",
      "str=\xB0\xA1 \xFF?/",
      "a=%B0%a1+%zz%",
      " leading, trailing ",
      "#",
      "str=<\"'>[]{}|\\^`",
      "http://x/?http://y",
      std::string(50'000, '&'),
      "../../a/./b",
  };
  std::vector<std::string> lines;
  for (const std::string& query : queries) {
    EXPECT_EQ(Client().Get(recorder.HostAndPort() + "/search?" + query), "body") << query;
    lines.push_back("GET /search?" + query + " HTTP/1.1");
  }
  EXPECT_EQ(Client().Post("http://" + recorder.HostAndPort() + "?a b#c", ""), "body");
  lines.emplace_back("POST /?a b#c HTTP/1.1");
  EXPECT_EQ(Client().Get(recorder.HostAndPort() + "/path"), "body");
  lines.emplace_back("GET /path HTTP/1.1");
  EXPECT_EQ(recorder.Lines(), lines);
}

TEST_F(HttpExchange, SendsTheSameBytesThroughAProxyAndFollowsRedirects) {
  RequestRecorder recorder({RequestRecorder::Found("/there?x=1"), RequestRecorder::Ok("body")});
  EXPECT_EQ(Client().Get(recorder.HostAndPort() + "/from?a b#c"), "body");
  RequestRecorder proxy({RequestRecorder::Found("/there?x=1"), RequestRecorder::Ok("proxied")});
  UseProxy(proxy.HostAndPort());
  EXPECT_EQ(Client().Get("feeds.invalid/from?a \xB0\xA1#&c"), "proxied");

  EXPECT_EQ(recorder.Lines(),
            (std::vector<std::string>{"GET /from?a b#c HTTP/1.1", "GET /there?x=1 HTTP/1.1"}));
  EXPECT_EQ(proxy.Lines(),
            (std::vector<std::string>{"GET http://feeds.invalid/from?a \xB0\xA1#&c HTTP/1.1",
                                      "GET http://feeds.invalid/there?x=1 HTTP/1.1"}));
}

TEST_F(HttpExchange, AControlCharacterInTheAddressSendsNothing) {
  RequestRecorder recorder({RequestRecorder::Ok("body")});
  const std::string injected = " HTTP/1.1\r\nX-Injected: 1\r\n\r\n";
  const std::vector<std::string> rests = {
      "/x?a" + injected, "/x?#" + injected, "/x" + injected,          "/x?a\n",
      "/x?a\tb",         "/x?a\x7F",        std::string("/x?a\0b", 6)};
  for (const std::string& rest : rests) {
    EXPECT_EQ(Client().Get(recorder.HostAndPort() + rest), "") << rest;
    EXPECT_EQ(Client().Post(recorder.HostAndPort() + rest, "a=1"), "") << rest;
  }
  EXPECT_EQ(Client().Get(recorder.HostAndPort() + "/a path?x"), "");
  EXPECT_TRUE(recorder.Lines().empty());
}

TEST_F(HttpExchange, TellsItsProgressToALogThatAsksForIt) {
  server_.Serve("/x", "body");
  server_.Redirect("/from", server_.Url("/x"));
  std::vector<std::string> lines;
  Client([&](std::string_view line) { lines.emplace_back(line); }).Get(server_.Url("/from"));
  const auto at = [&](std::string_view line) { return std::ranges::find(lines, line); };
  EXPECT_EQ(lines.front(), "Handle created");
  EXPECT_LT(at("Connecting to socket address"), at("Connected to socket address"));
  EXPECT_LT(at("Request sent"), at("Response received"));
  EXPECT_LT(at("Being redirected"), at("Request complete"));
  EXPECT_EQ(lines.back(), "Connection to the server closed");
  EXPECT_EQ(HttpStatusLine(TransferEvent::ResolvingName, "h"), "Resolving name h");
  EXPECT_EQ(HttpStatusLine(static_cast<TransferEvent>(99), ""), "Unknown status: 99");
}

}  // namespace
}  // namespace feedloom
