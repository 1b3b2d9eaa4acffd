// What a large left pane costs, off screen and over a real database: loading
// the tree until it is painted, the update button, and the statements of marking a large folder.
// The pauses between statements are left out.
#include <fmt/core.h>

#include <QApplication>
#include <QTreeView>
#include <memory>
#include <utility>

#include "bench/Goals.h"
#include "bench/StoreContents.h"
#include "ui/Commands.h"
#include "ui/Fakes.h"
#include "ui/tree/CRSS_GroupTreeCtrl.h"
#include "ui/tree/CRSS_LeftContainer.h"
#include "ui/tree/TreeLoader.h"

namespace feedloom {
namespace {

constexpr const char* kLoad = "load and first paint, 10,000 channels in 500 folders, 20,000 posts";
constexpr const char* kUpdateTwice = "update twice, 1,000 channels";

// A visible pane over a database of this size.
struct Pane {
  Pane(int folders, int channels, int posts) {
    FillStore(frame.db, folders, channels, posts);
    pane = std::make_unique<CRSS_LeftContainer>(frame, frame, frame, frame, nullptr);
    frame.onRecount = [this](bool scrap) { pane->RecountUnread(scrap); };
    pane->resize(251, 700);
    pane->show();
    ReadAndShow();
    QApplication::processEvents();
  }

  void ReadAndShow() { pane->ShowTree(ReadTree(frame.GetStore()).value()); }
  QTreeView& View() { return *pane->findChild<QTreeView*>(); }

  FakeFrame frame;
  std::unique_ptr<CRSS_LeftContainer> pane;
};

void LoadAndPaint(benchmark::State& state, Pane& full) {
  for (auto _ : state) {
    full.ReadAndShow();
    full.View().viewport()->grab();
  }
  if (full.View().model()->rowCount() != 501) state.SkipWithError("the tree was not loaded");
}

void UpdateTwice(benchmark::State& state, Pane& full) {
  for (auto _ : state) {
    full.frame.queue.RemoveWaiting();
    full.pane->Run(kCommandRefreshAll);
    full.pane->Run(kCommandRefreshAll);
  }
  int queued = 0;
  while (const auto entry = full.frame.queue.Claim()) {
    full.frame.queue.Remove(entry->id);
    ++queued;
  }
  if (queued != 1'000) state.SkipWithError("not each channel was queued once");
}

// Marks the one folder, whose 2,000 channels hold 20,000 posts, read by its menu's command.
std::size_t StatementsOfMarking() {
  Pane folder(1, 2'000, 20'000);
  QTreeView& view = folder.View();
  view.setCurrentIndex(view.model()->index(0, 0));
  GroupTreeModel& model = static_cast<GroupTreeModel&>(*view.model());
  CRSS_GroupTreeCtrl& tree = static_cast<CRSS_GroupTreeCtrl&>(view);
  FakeFrame& frame = folder.frame;
  TreeCommands commands(frame, frame, frame, frame, model, tree, [] {});
  StatementLog log;
  commands.Run(kCommandMarkAllRead);
  const bool isMarked = model.GroupAt(model.index(0, 0))->unreadCount == 0;
  return isMarked ? log.Take().size() : 1'000'000;
}

int Main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  Pane large(500, 10'000, 20'000);
  Pane small(20, 1'000, 1'000);
  benchmark::RegisterBenchmark(kLoad, [&](benchmark::State& state) {
    LoadAndPaint(state, large);
  })->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark(kUpdateTwice, [&](benchmark::State& state) {
    UpdateTwice(state, small);
  })->Unit(benchmark::kMillisecond);
  const Measurements measured = RunAllBenchmarks(argc, argv);

  bool met = MeetsAtMost("marking a folder of 2,000 channels",
                         static_cast<double>(StatementsOfMarking()), 8, " statements");
  if (measured.Fastest(kLoad) > 0) {
    met = MeetsAtMost("loading the tree", measured.Fastest(kLoad) * 1e3, 300, " ms") && met;
  }
  if (measured.Fastest(kUpdateTwice) > 0) {
    met = MeetsAtMost("update twice", measured.Fastest(kUpdateTwice) * 1e3, 20, " ms") && met;
  }
  return met ? 0 : 1;
}

}  // namespace
}  // namespace feedloom

int main(int argc, char** argv) { return feedloom::Main(argc, argv); }
