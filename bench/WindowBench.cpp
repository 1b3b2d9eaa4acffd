// How the module's window answers, off screen: the time from the program's start to the first post
// on screen, and the interface thread's gaps during a refresh. Every pause and every file is the
// real one.
//   WindowBench [POSTS_OF_EACH_CHANNEL]
#include <fmt/core.h>
#include <unistd.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <cstdlib>
#include <vector>

#include "bench/Goals.h"
#include "bench/ModuleHost.h"
#include "kit/FeedDocuments.h"
#include "kit/FeedServer.h"
#include "kit/ManualClock.h"
#include "kit/TestProfile.h"
#include "shell/Feedloom.h"
#include "store/Connection.h"

namespace feedloom {
namespace {

constexpr int kChannels = 200;
constexpr double kGapGoalMs = 50;
constexpr double kEndGoalMs = 1000;

// A window with the module in it.
class BenchHost : public QWidget {
 public:
  bool refreshEnded = false;

 protected:
  bool event(QEvent* event) override {
    if (event->type() != WindowMessage::kType) return QWidget::event(event);
    if (static_cast<WindowMessage*>(event)->number == kMessageRefreshEnded) refreshEnded = true;
    return true;
  }
};

// The database of `profile` with kChannels channels of `itemsEach` posts, in ten folders.
void Fill(const TestProfile& profile, int itemsEach, const FeedServer& server) {
  ManualClock noPauses;
  Store store(profile.Paths().database, CodePage::Korean(), noPauses,
              [](std::string_view text) { fmt::print(stderr, "{}\n", text); });
  const std::string text(1000, 'x');
  ExecuteEach(
      store,
      {"delete from TB_CHANNEL", "delete from TB_POST", "begin",
       "with recursive n(i) as (select 2 union all select i + 1 from n where i < 10) insert into "
       "TB_FOLDER(folder_id, folder_name, folder_order) select i, 'Folder ' || i, i from n",
       fmt::format("with recursive n(i) as (select 1 union all select i + 1 from n where i < {}) "
                   "insert into TB_CHANNEL(channel_id, channel_title, channel_xmllink, "
                   "channel_folderID, channel_order) select i, 'Channel ' || i, '{}' || i, 1 + i % "
                   "10, i from n",
                   kChannels, server.Url("/feed/")),
       fmt::format("with recursive n(i) as (select 0 union all select i + 1 from n where i < {}) "
                   "insert into TB_POST(post_channelID, post_title, post_link, post_pubDate, "
                   "post_desc) select 1 + i % {}, 'Post ' || i, 'http://example.com/' || i, "
                   "'2008-05-01 10:00:00', '{}' from n where i < {}",
                   kChannels * itemsEach, kChannels, text, kChannels * itemsEach),
       "commit"});
}

// Steps of a start and the time that each took.
class Steps {
 public:
  Steps() { timer_.start(); }

  void Done(const char* what) {
    const double now = static_cast<double>(timer_.nsecsElapsed()) / 1e6;
    fmt::print("  {:<44}{:7.1f} ms\n", what, now - last_);
    last_ = now;
  }
  double Total() const { return last_; }

 private:
  QElapsedTimer timer_;
  double last_ = 0;
};

void WaitForPage(QWidget* frame) {
  QEventLoop loop;
  QObject::connect(frame, SIGNAL(PageShown()), &loop, SLOT(quit()));
  loop.exec();
}

// The gaps between the calls of a 5 ms timer while `isOver` is false, in milliseconds, sorted.
std::vector<double> GapsUntil(const bool& isOver) {
  std::vector<double> gaps;
  QElapsedTimer since;
  QEventLoop loop;
  QTimer timer;
  timer.setTimerType(Qt::PreciseTimer);
  QObject::connect(&timer, &QTimer::timeout, &loop, [&] {
    gaps.push_back(static_cast<double>(since.nsecsElapsed()) / 1e6);
    since.restart();
    if (isOver) loop.quit();
  });
  since.start();
  timer.start(5);
  loop.exec();
  std::ranges::sort(gaps);
  return gaps;
}

double Percentile(const std::vector<double>& sorted, double share) {
  return sorted[static_cast<std::size_t>(share * static_cast<double>(sorted.size() - 1))];
}

void RefreshAll(QWidget* frame) {
  WindowMessage refresh(kMessageRefreshAll, 0, 0);
  QCoreApplication::sendEvent(frame, &refresh);
}

// Refreshes all channels until `ended`. A second request during the run is like a second press of
// the button.
bool MeasureRefresh(const char* what, QWidget* frame, bool& ended) {
  ended = false;
  QElapsedTimer run;
  run.start();
  QTimer::singleShot(0, frame, [frame] { RefreshAll(frame); });
  QTimer::singleShot(500, frame, [frame] { RefreshAll(frame); });
  const std::vector<double> gaps = GapsUntil(ended);
  fmt::print("refresh of {} channels x 20 items, {}: {:.1f} s\n", kChannels, what,
             static_cast<double>(run.elapsed()) / 1e3);
  fmt::print("  gaps of a 5 ms timer: {} of them, median {:.1f}, 99th {:.1f} ms\n", gaps.size(),
             Percentile(gaps, 0.5), Percentile(gaps, 0.99));
  return MeetsAtMost("worst of the gaps", gaps.back(), kGapGoalMs, "ms");
}

// Destroys the frame a second into a refresh.
bool MeasureEnd(QWidget* frame, void* module) {
  RefreshAll(frame);
  QEventLoop loop;
  QTimer::singleShot(1000, &loop, &QEventLoop::quit);
  loop.exec();
  QElapsedTimer end;
  end.start();
  DestroyModule(module);
  return MeetsAtMost("end during a refresh", static_cast<double>(end.elapsed()), kEndGoalMs, "ms");
}

int Measure(int argc, char** argv) {
  const int postsEach = argc > 1 ? std::atoi(argv[1]) : 100;
  FeedServer server;
  for (int i = 1; i <= kChannels; ++i) {
    const std::string path = fmt::format("/feed/{}", i);
    server.ServeVersion(path, NumberedRss("Feed", "http://127.0.0.1" + path + "/", 20), "\"1\"");
  }
  server.SetLatency(std::chrono::milliseconds(50));
  const TestProfile profile;
  Fill(profile, postsEach, server);

  fmt::print("start with {} channels and {} posts\n", kChannels, kChannels * postsEach);
  Steps steps;
  void* const module = LoadModule(profile);
  if (module == nullptr) return 1;
  steps.Done("load the module and the browser engine");
  const QApplication application(argc, argv);
  steps.Done("application object");
  BenchHost host;
  host.resize(1000, 700);
  QWidget* const frame = ShowModule(module, host);
  steps.Done("Create: store, panes, tree, engine's start");
  host.show();
  WaitForPage(frame);
  steps.Done("main page on screen");
  SelectFirstChannel(frame);
  steps.Done("select: load and list the posts");
  WaitForPage(frame);
  steps.Done("first post on screen");
  fmt::print("  {:<44}{:7.1f} ms\n", "all", steps.Total());

  const bool answersFirst = MeasureRefresh("all new", frame, host.refreshEnded);
  const bool answersLater = MeasureRefresh("nothing new", frame, host.refreshEnded);
  const bool ends = MeasureEnd(frame, module);
  return answersFirst && answersLater && ends ? 0 : 1;
}

}  // namespace
}  // namespace feedloom

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  if (geteuid() == 0) qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
  return feedloom::Measure(argc, argv);
}
