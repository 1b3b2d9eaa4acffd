// feed_server FEEDS ITEMS LATENCY_MS [plain]: serves RSS feeds "/feed/1" to "/feed/FEEDS" on
// 127.0.0.1 with their ETag and Last-Modified, or without them when "plain", each answer after the
// latency. Prints the port; then, for each line
// of its input and at the input's end, the highest number of simultaneous requests, and the numbers
// of requests, of answers 304 and of connections so far.
#include <fmt/core.h>

#include <chrono>
#include <cstdio>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "kit/FeedDocuments.h"
#include "kit/FeedServer.h"
#include "text/Text.h"

namespace feedloom {
namespace {

std::string PathOf(int feed) { return fmt::format("/feed/{}", feed); }

std::string Feed(int feed, int items) {
  std::vector<SampleItem> posts =
      NumberedItems(fmt::format("http://site.example/{}/articles/", feed), items);
  for (SampleItem& post : posts) {
    post.title += " of a village by the river";
    for (int i = 0; i < 6; ++i) {
      post.description += ". All that night the people sat on the hill & waited for the morning";
    }
  }
  return RssDocument(fmt::format("Channel {}", feed), posts);
}

void PrintCounts(const FeedServer& server, int feeds) {
  int requests = 0;
  for (int feed = 1; feed <= feeds; ++feed) requests += server.Requests(PathOf(feed));
  fmt::print("{} {} {} {}\n", server.HighestConcurrency(), requests, server.Unchanged(),
             server.Connections());
  std::fflush(stdout);
}

void Run(int feeds, int items, std::chrono::milliseconds latency, bool isPlain) {
  FeedServer server;
  server.SetLatency(latency);
  server.KeepConnections();
  for (int feed = 1; feed <= feeds; ++feed) {
    const std::string document = Feed(feed, items);
    if (isPlain) {
      server.Serve(PathOf(feed), document);
    } else {
      server.ServeVersion(PathOf(feed), document, fmt::format("\"version-{}\"", feed),
                          "Sat, 21 Nov 2026 12:00:00 GMT");
    }
  }
  fmt::print("{}\n", server.Port());
  std::fflush(stdout);
  for (std::string line; std::getline(std::cin, line);) PrintCounts(server, feeds);
  PrintCounts(server, feeds);
}

}  // namespace
}  // namespace feedloom

int main(int argc, char** argv) {
  const bool isPlain = argc == 5 && std::string_view(argv[4]) == "plain";
  if (argc != 4 && !isPlain) {
    fmt::print(stderr, "usage: {} FEEDS ITEMS LATENCY_MS [plain]\n", argv[0]);
    return 2;
  }
  const auto number = [&](int at) { return feedloom::ParseInt(argv[at]); };
  feedloom::Run(number(1), number(2), std::chrono::milliseconds(number(3)), isPlain);
  return 0;
}
