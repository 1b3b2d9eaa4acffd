#include <gtest/gtest.h>

#include <algorithm>

#include "ingest/HttpClient.h"
#include "kit/FeedServer.h"
#include "kit/TempFolder.h"

namespace feedloom {
namespace {

class HttpExchange : public testing::Test {
 protected:
  HttpClient Client(StatusLog log = {}) { return HttpClient(registry_, std::move(log)); }

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
  const std::string key =
      R"(HKEY_CURRENT_USER\Software\Microsoft\Windows\CurrentVersion\Internet Settings)";
  FeedServer proxy;
  proxy.Serve("http://feeds.invalid/x", "through the proxy");
  ASSERT_TRUE(
      registry_.WriteString(key, "ProxyServer", "127.0.0.1:" + std::to_string(proxy.Port())));
  EXPECT_EQ(Client().Get("http://feeds.invalid/x"), "");
  ASSERT_TRUE(registry_.WriteDword(key, "ProxyEnable", 1));
  EXPECT_EQ(Client().Get("http://feeds.invalid/x"), "through the proxy");
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
