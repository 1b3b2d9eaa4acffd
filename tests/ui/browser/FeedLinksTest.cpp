#include <gtest/gtest.h>

#include "ui/browser/FeedLinks.h"

namespace feedloom {
namespace {

TEST(FeedLinks, AreResolvedByHowTheyBegin) {
  struct Case {
    const char* href;
    const char* domain;
    const char* documentUrl;
    const char* address;
  };
  const char* const deep = "https://example.com/a/b/c/page.html";
  const Case cases[] = {
      {"/feed.xml", "example.com", deep, "https://example.com/feed.xml"},
      {"/feed.xml", "example.com", "http://example.com:8080/a/", "http://example.com/feed.xml"},
      {"/feed.xml", "example.com", "nowhere", "http://example.com/feed.xml"},
      {"/feed.xml", "ftp://example.com", deep, "ftp://example.com/feed.xml"},
      {"./feed.xml", "example.com", deep, "https://example.com/a/b/c/feed.xml"},
      {"../feed.xml", "example.com", deep, "https://example.com/a/b/feed.xml"},
      {"../../feed.xml", "example.com", deep, "https://example.com/a/feed.xml"},
      {"../x/../feed.xml", "example.com", deep, "https://example.com/a/b/x/../feed.xml"},
      {"../", "example.com", deep, "https://example.com/a/b/"},
      {"feed.xml", "example.com", deep, "feed.xml"},
      {"https://other.example/f", "example.com", deep, "https://other.example/f"},
      {"?feed=rss", "example.com", deep, "?feed=rss"},
      {"..", "example.com", deep, ".."},
      {"", "example.com", deep, ""},
      {"../../../feed.xml", "", "x", "/feed.xml"},
  };
  for (const Case& test : cases) {
    EXPECT_EQ(ResolveFeedLink(test.href, test.domain, test.documentUrl), test.address) << test.href;
  }
}

}  // namespace
}  // namespace feedloom
