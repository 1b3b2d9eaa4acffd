// What the exchange of subscriptions costs: writing a long list; importing one into the left pane
// off screen, over a real database, without the pauses between statements.
#include <fmt/core.h>

#include <QApplication>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <memory>

#include "bench/Goals.h"
#include "exchange/OpmlExport.h"
#include "exchange/OpmlImporter.h"
#include "ui/Fakes.h"
#include "ui/tree/CRSS_LeftContainer.h"

namespace feedloom {
namespace {

using Seconds = std::chrono::duration<double>;
using std::chrono::steady_clock;

constexpr const char* kExport = "export, 10,000 channels in 500 folders";

SubscriptionList MakeList(int folders, int channels) {
  SubscriptionList list;
  for (int f = 0; f < folders; ++f) list.push_back({fmt::format("Folder {} & more", f)});
  for (int c = 0; c < channels; ++c) {
    list[static_cast<std::size_t>(c % folders)].channels.push_back(
        {.title = fmt::format("Channel {} of the village by the river", c),
         .xmlLink =
             fmt::format("https://site{}.example/feeds/posts/default?alt=rss&page={}", c, c)});
  }
  return list;
}

void Export(benchmark::State& state, FakeFrame& frame) {
  const SubscriptionList list = MakeList(500, 10'000);
  const std::string path = frame.workFolder.File("out.xml");
  for (auto _ : state) {
    const OpmlExport result = ExportSubscriptions(frame.GetStore(), list, false);
    if (!result.check.readsBack || SaveFile(path, result.opml)) state.SkipWithError("not written");
  }
}

struct Import {
  double seconds = 0;  // from its start until the last row stands in the tree
  double longest = 0;  // the longest time in which the interface thread served no timer
  int rows = 0;
};

// Imports the list into an empty, visible pane.
Import ImportList(int folders, int channels) {
  FakeFrame frame;
  CRSS_LeftContainer pane(frame, frame, frame, frame, nullptr);
  pane.resize(251, 700);
  pane.show();
  pane.ShowTree({});
  QApplication::processEvents();
  const std::string path = frame.workFolder.File("list.xml");
  const SubscriptionList list = MakeList(folders, channels);
  if (SaveFile(path, ExportSubscriptions(frame.GetStore(), list, false).opml)) return {};
  const auto services = std::make_shared<FetchServices>(
      FetchServices{frame.db.Shared(), Registry(""), frame.db.Clock(), frame.workFolder.Path()});

  Import result;
  auto last = steady_clock::now();
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
    const auto now = steady_clock::now();
    result.longest = std::max(result.longest, Seconds(now - last).count());
    last = now;
  });
  timer.start(1);
  const auto start = steady_clock::now();
  OpmlImporter importer(
      services, [thread = frame.interfaceThread](auto work) { thread->Run(std::move(work)); });
  bool isOver = false;
  const ImportReceiver receiver{
      .news = {.onFolder = [&](const FolderRow& row) { pane.AppendFolder(row); },
               .onChannel =
                   [&](const ChannelRow& row) {
                     pane.AppendChannel(row);
                     frame.QueueRefresh({row});
                     ++result.rows;
                   }},
      .onEnd = [&](const auto&) { isOver = true; }};
  importer.Read({.place = path}, [&](const ReadList& read) {
    importer.Add(read.plan.value(), NameClash::Rename, receiver);
  });
  while (!isOver) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  result.seconds = Seconds(steady_clock::now() - start).count();
  result.longest = std::max(result.longest, Seconds(steady_clock::now() - last).count());
  return result;
}

int Main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  FakeFrame frame;
  benchmark::RegisterBenchmark(kExport, [&](benchmark::State& state) {
    Export(state, frame);
  })->Unit(benchmark::kMillisecond);
  const Measurements measured = RunAllBenchmarks(argc, argv);
  bool met = true;
  if (measured.Fastest(kExport) > 0) {
    met = MeetsAtMost("exporting 10,000 channels", measured.Fastest(kExport) * 1e3, 100, " ms");
  }
  const Import import = ImportList(60, 1'300);
  met = MeetsAtMost("channels missing from the tree", 1'300 - import.rows, 0, "") && met;
  met = MeetsAtMost("importing 1,300 channels in 60 folders", import.seconds, 3, " s") && met;
  return MeetsAtMost("the interface thread's longest absence", import.longest * 1e3, 50, " ms") &&
                 met
             ? 0
             : 1;
}

}  // namespace
}  // namespace feedloom

int main(int argc, char** argv) { return feedloom::Main(argc, argv); }
