#include <gtest/gtest.h>

#include "ingest/FeedAddress.h"

namespace feedloom {
namespace {

TEST(FeedAddressTest, CompletesWhatTheUserTypes) {
  struct Case {
    const char* typed;
    const char* address;
  };
  constexpr Case kCases[] = {
      {"news.kr/feed.xml", "http://news.kr/feed.xml"},
      {" \t news.kr \n", "http://news.kr"},
      {"https://news.kr/", "https://news.kr/"},
      {"feed://news.kr/", "feed://news.kr/"},
      {"mailto:me", "http://mailto:me"},
      {"news.kr/내 글?q=a%20b", "http://news.kr/%EB%82%B4%20%EA%B8%80?q=a%20b"},
      {"http://h/\x01\x7F\"", "http://h/%01%7F\""},
      {"", ""},
      {" \n ", ""},
  };
  for (const Case& each : kCases) {
    EXPECT_EQ(CompleteFeedAddress(each.typed, "http"), each.address) << each.typed;
  }
}

TEST(FeedAddressTest, OnlyHttpAndHttpsAreOfTheWeb) {
  for (const char* address : {"http://a/", "HTTPS://a/"}) EXPECT_TRUE(IsWebAddress(address));
  for (const char* address : {"", "http", "file:///http://", "javascript:alert('http://')",
                              "httpx://a/", "//a/", " http://a/"}) {
    EXPECT_FALSE(IsWebAddress(address)) << address;
  }
}

}  // namespace
}  // namespace feedloom
