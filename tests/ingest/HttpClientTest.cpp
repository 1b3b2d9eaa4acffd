#include <gtest/gtest.h>

#include "ingest/HttpClient.h"
#include "kit/FeedServer.h"
#include "kit/RequestRecorder.h"
#include "kit/TempFolder.h"

namespace feedloom {
namespace {

constexpr const char* kInternetKey =
    R"(HKEY_CURRENT_USER\Software\Microsoft\Windows\CurrentVersion\Internet Settings)";
using Lines = std::vector<std::string>;

class HttpExchange : public testing::Test {
 protected:
  std::string Get(const std::string& address) { return HttpClient(registry_).Get(address); }
  std::string Post(const std::string& address) {
    return HttpClient(registry_).Post(address, "a=%EA");
  }

  TempFolder folder_;
  Registry registry_{folder_.File("registry.reg")};
  FeedServer server_;
  RequestRecorder recorder_{{RequestRecorder::Ok("body")}};
};

TEST_F(HttpExchange, GetsABodyByteForByteAndPostsAForm) {
  const std::string host = "127.0.0.1:" + std::to_string(server_.Port());
  const std::string bytes("a\0\xB0\xA1z", 5);
  server_.Serve("/", bytes);
  server_.Echo("/echo");
  server_.Fail("/missing", 404);
  server_.Fail("/created", 201);
  for (const std::string& start : Lines{"", "http://"}) EXPECT_EQ(Get(start + host), bytes);
  EXPECT_EQ(Post(host + "/echo"), "a=%EA");
  EXPECT_EQ(server_.LastHeader("/echo", "Content-Type"), "application/x-www-form-urlencoded");
  for (const std::string& address :
       Lines{"https://" + host, host + "/missing", host + "/created", ""}) {
    EXPECT_EQ(Get(address), "") << address;
  }
  EXPECT_EQ(server_.Requests("/"), 2) << "https is not sent in the clear";
}

TEST_F(HttpExchange, SendsAQueryByteForByteAlsoThroughAProxy) {
  Lines lines;
  for (const std::string& host : Lines{recorder_.HostAndPort(), "feeds.invalid"}) {
    const std::string start = host == "feeds.invalid" ? "http://feeds.invalid" : "";
    for (const std::string& query :
         Lines{"str=a b&c=#d", "str=\xB0\xA1 \xFF?/", "a=%B0%a1+%zz%", " #", "<\"'>[]{}|\\^`",
               "http://x/?../../a/./b", std::string(50'000, '&')}) {
      EXPECT_EQ(Get(host + "/search?" + query), "body") << query;
      lines.push_back("GET " + start + "/search?" + query + " HTTP/1.1");
    }
    EXPECT_EQ(Post(host + "?a b#c"), "body");
    lines.push_back("POST " + start + "/?a b#c HTTP/1.1");
    ASSERT_TRUE(registry_.WriteString(kInternetKey, "ProxyServer", recorder_.HostAndPort()) &&
                registry_.WriteDword(kInternetKey, "ProxyEnable", 1));
  }
  EXPECT_EQ(recorder_.Lines(), lines);
}

TEST_F(HttpExchange, TellsEachStepToALog) {
  server_.Serve("/new", "body");
  server_.Redirect("/old", "/new");
  std::string told;
  HttpClient client(registry_, [&](std::string_view line) { told.append(line).append("; "); });
  EXPECT_EQ(client.Get(server_.Url("/old")), "body");
  const std::string exchange =
      "Name resolved 127.0.0.1; Connecting to socket address; Connected to socket address; "
      "Sending request; Request sent; Response received; ";
  EXPECT_EQ(told, "Handle created; Resolving name 127.0.0.1; " + exchange + "Being redirected; " +
                      exchange +
                      "Closing the connection to the server; Request complete; "
                      "Connection to the server closed; ");
}

TEST_F(HttpExchange, AControlCharacterInTheAddressSendsNothing) {
  const std::string injected = " HTTP/1.1\r\nX-Injected: 1\r\n\r\n";
  for (const std::string& rest : Lines{"?a" + injected, "?#" + injected, injected, "?a\n", "?a\tb",
                                       "?a\x7F", std::string("?a\0b", 4), "a path?x"}) {
    EXPECT_EQ(Get(recorder_.HostAndPort() + "/x" + rest), "") << rest;
    EXPECT_EQ(Post(recorder_.HostAndPort() + "/x" + rest), "") << rest;
  }
  EXPECT_TRUE(recorder_.Lines().empty());
}

}  // namespace
}  // namespace feedloom
