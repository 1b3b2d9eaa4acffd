// How long the interface thread is busy when every channel is put into the refresh queue twice, as
// when "update" is pressed twice in a row.
#include <string>
#include <vector>

#include "bench/Goals.h"
#include "refresh/RefreshQueue.h"

namespace {

using feedloom::Channel;

struct Case {
  const char* name;
  int channels;
  double milliseconds;  // at most
};

constexpr Case kCases[] = {{"Append twice, 1,000 channels", 1'000, 20},
                           {"Append twice, 10,000 channels", 10'000, 20}};

std::vector<Channel> Channels(int count) {
  std::vector<Channel> channels(static_cast<size_t>(count));
  for (int i = 0; i < count; ++i) {
    Channel& entry = channels[static_cast<size_t>(i)];
    entry.id = i;
    entry.folderId = i / 20;
    entry.title = "A channel with a title, number " + std::to_string(i);
    entry.xmlLink = "http://feeds.example.org/channel/" + std::to_string(i) + "/rss.xml";
  }
  return channels;
}

// Includes copying the entries, which the interface does for each request.
int AppendAll(feedloom::RefreshQueue& queue, const std::vector<Channel>& channels) {
  int appended = 0;
  for (const Channel& entry : channels) appended += queue.Append(entry) ? 1 : 0;
  return appended;
}

void AppendTwice(benchmark::State& state, int count) {
  const std::vector<Channel> channels = Channels(count);
  for (auto _ : state) {
    feedloom::RefreshQueue queue;
    if (AppendAll(queue, channels) != count) state.SkipWithError("a channel was not queued");
    if (AppendAll(queue, channels) != 0) state.SkipWithError("a channel was queued twice");
  }
  state.SetItemsProcessed(state.iterations() * 2 * count);
}

}  // namespace

int main(int argc, char** argv) {
  for (const Case& c : kCases) benchmark::RegisterBenchmark(c.name, AppendTwice, c.channels);
  const feedloom::Measurements measured = feedloom::RunAllBenchmarks(argc, argv);
  bool met = true;
  for (const Case& c : kCases) {
    const double seconds = measured.Fastest(c.name);
    if (seconds == 0) continue;
    met = feedloom::MeetsAtMost(c.name, seconds * 1e3, c.milliseconds, " ms") && met;
  }
  return met ? 0 : 1;
}
