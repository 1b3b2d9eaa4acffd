#pragma once

#include <string>

namespace feedloom {

// What the check of an address found out; texts are in the module's code page.
struct FeedCheckAnswer {
  bool isFeed = false;
  // Of a feed; empty when it does not say.
  std::string title = {};
  std::string homePage = {};
  // The address (http or https) of the first feed that a web page announces; empty without one.
  std::string announcedFeed = {};
};

}  // namespace feedloom
