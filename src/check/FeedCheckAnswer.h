#pragma once

#include <string>

#include "fetch/FeedFault.h"

namespace feedloom {

// The result of the check of an address. Texts are in the module's code page.
struct FeedCheckAnswer {
  bool isFeed = false;
  // The channel's title and home page, as the feed gives them; empty where it gives none.
  std::string title = {};
  std::string homePage = {};
  // The address (http or https) of the first feed that a web page announces; else empty.
  std::string announcedFeed = {};
  // The server (UrlOrigin) that wants a name and a password, or refuses those it got; else empty.
  std::string loginServer = {};
  bool loginIsLost = false;  // the login worked, but could not be kept
  FeedFault fault = {};      // why it is no feed; None when it is one
};

}  // namespace feedloom
