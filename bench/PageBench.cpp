// What showing a post costs: building its page, off a list's click until the page is painted, and
// the memory of all processes when many posts are shown in a row. The clicks and the memory are
// those of the real module in a window off screen, with every pause, every file and the engine's
// processes.
#include <fmt/ranges.h>
#include <unistd.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QMouseEvent>
#include <QTimer>
#include <QTreeView>
#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <numeric>
#include <span>
#include <string>
#include <vector>

#include "bench/Goals.h"
#include "bench/ModuleHost.h"
#include "kit/ManualClock.h"
#include "kit/TestProfile.h"
#include "profile/KeptDatabase.h"
#include "store/Connection.h"
#include "store/Counts.h"
#include "ui/Fakes.h"
#include "ui/browser/PageRules.h"
#include "ui/browser/PostPages.h"
#include "ui/page/Pages.h"

namespace feedloom {
namespace {

constexpr const char* kBuild = "build the page of a 1 MB description";
constexpr const char* kConvert = "convert that page to UTF-8";
constexpr const char* kPane = "all of it in the pane: build, convert, policy";
constexpr double kBuildGoalMs = 2;
constexpr double kBlockedGoalMs = 50;
constexpr double kGrowthGoal = 10;  // %

constexpr std::size_t kPostBytes = 4 << 10;
constexpr int kClicks = 1'000;
constexpr int kTimed = 100;
constexpr int kLongestWaitMs = 30'000;

constexpr const char* kTitle = "The river rose 강물이 밤사이 불었다";

// A description of at least `bytes` bytes in the Korean code page: paragraphs, some emphasis and
// links, half of it Korean.
std::string Description(std::size_t bytes) {
  const std::string paragraph = CodePage::Korean().FromUtf8(
      "<p>All that night the people of the <b>village</b> sat on the hill and watched the "
      "<a href=\"http://site.example/bridge\">bridge</a>.</p><p>그날 밤 <i>마을</i> 사람들은 모두 "
      "언덕에 앉아 다리를 바라보았다. 강물은 하룻밤 사이에 두 길이나 불었고, 새벽이 되어서야 비가 "
      "그쳤다.</p>");
  std::string description;
  while (description.size() < bytes) description += paragraph;
  return description;
}

PostRow LargePost() {
  PostRow post;
  post.description = Description(1 << 20);
  post.link = "http://site.example/articles/2008/06/1";
  post.published = "2008-05-01 10:00:00";
  post.title = CodePage::Korean().FromUtf8(kTitle);
  return post;
}

std::string Build(const PostRow& post, const PageTexts& descriptions, const PageSkin& skin) {
  return BuildPostPreviewPage(1, {post.title}, {post.link}, descriptions, {post.published}, {{}},
                              false, skin, PageCharset(CodePage::Korean()));
}

// Measures building a page and what the pane does before the engine requests it.
bool MeasureBuilding(int argc, char** argv) {
  FakeFrame frame;
  const PostRow post = LargePost();
  const PageTexts descriptions{post.description};
  const PageSkin skin = LoadPageSkin(frame.GetSkin());
  const std::string html = Build(post, descriptions, skin);
  const auto add = [](const char* name, auto run) {
    benchmark::RegisterBenchmark(name, [run](benchmark::State& state) {
      for (auto _ : state) benchmark::DoNotOptimize(run());
    })->Unit(benchmark::kMillisecond);
  };
  add(kBuild, [&] { return Build(post, descriptions, skin); });
  add(kConvert, [&] { return CodePage::Korean().ToUtf8(html); });
  add(kPane, [&] {
    const PageToWrite page = MakePreview(frame, post);
    return WithHead(page.html, page.kind, page.showsRemoteImages, {});
  });
  const double seconds = RunAllBenchmarks(argc, argv).Fastest(kBuild);
  return seconds <= 0 || MeetsAtMost(kBuild, seconds * 1e3, kBuildGoalMs, " ms");
}

// The database of a profile, without the pauses.
class Database {
 public:
  explicit Database(const TestProfile& profile)
      : store_(profile.Paths().database, CodePage::Korean(), noPauses_,
               [](std::string_view text) { fmt::print(stderr, "{}\n", text); }) {}

  // One channel, with a post for each click and one more, which is shown when the channel is
  // selected.
  void Fill() {
    ExecuteEach(
        store_,
        {"delete from TB_CHANNEL", "delete from TB_POST", "begin",
         "insert into TB_CHANNEL(channel_id, channel_title, channel_xmllink, channel_folderID, "
         "channel_order) values(1, 'Channel', 'http://127.0.0.1/feed', 1, 1)",
         fmt::format("with recursive n(i) as (select 0 union all select i + 1 from n where i < {}) "
                     "insert into TB_POST(post_channelID, post_title, post_link, post_pubDate, "
                     "post_desc) select 1, '{} ' || i, 'http://site.example/' || i, '2008-05-01 "
                     "10:00:00', '<p>' || i || '</p>{}' from n",
                     kClicks, CodePage::Korean().FromUtf8(kTitle), Description(kPostBytes)),
         "commit"});
  }

  int Unread() { return CountUnreadPosts(store_); }

 private:
  ManualClock noPauses_;
  Store store_;
};

// What one click cost, in milliseconds.
struct Click {
  double painted = 0;  // until the page was painted
  double handler = 0;  // in the list's handler of the click
  double cpu = 0;      // the interface thread's CPU time in it
  double blocked = 0;  // the longest time without a call of a 1 ms timer
};

double ThreadCpuMs() {
  timespec used{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &used);
  return static_cast<double>(used.tv_sec) * 1e3 + static_cast<double>(used.tv_nsec) / 1e6;
}

double MsOf(const QElapsedTimer& timer) { return static_cast<double>(timer.nsecsElapsed()) / 1e6; }

// The module in a window.
class ModuleWindow {
 public:
  // Waits until the first post is shown.
  explicit ModuleWindow(void* module) : module_(module), frame_(ShowModule(module, host_)) {
    host_.resize(1000, 700);
    host_.show();
    WaitForPage();
    SelectFirstChannel(frame_);
    WaitForPage();
    list_ = frame_->findChild<QTreeView*>("3005");
  }
  ~ModuleWindow() { DestroyModule(module_); }
  ModuleWindow(const ModuleWindow&) = delete;
  ModuleWindow& operator=(const ModuleWindow&) = delete;

  // Clicks on the row like a mouse and waits until its page is painted.
  Click ClickOn(int row) {
    const QModelIndex index = list_->model()->index(row, 1);
    list_->scrollTo(index);
    QApplication::processEvents();
    const QPointF place = list_->visualRect(index).center();
    QMouseEvent press(QEvent::MouseButtonPress, place, list_->viewport()->mapToGlobal(place),
                      Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QMouseEvent release(QEvent::MouseButtonRelease, place, press.globalPosition(), Qt::LeftButton,
                        Qt::NoButton, Qt::NoModifier);
    Click click;
    const double cpuBefore = ThreadCpuMs();
    QElapsedTimer all;
    all.start();
    QApplication::sendEvent(list_->viewport(), &press);
    click.handler = MsOf(all);
    click.cpu = ThreadCpuMs() - cpuBefore;
    QApplication::sendEvent(list_->viewport(), &release);
    click.blocked = LongestGapUntilPage(all);
    click.painted = MsOf(all);
    return click;
  }

 private:
  void WaitForPage() {
    QElapsedTimer now;
    now.start();
    LongestGapUntilPage(now);
  }

  // From `since` until the page is painted, the longest time without a call of a 1 ms timer.
  double LongestGapUntilPage(QElapsedTimer since) {
    double longest = 0;
    QEventLoop loop;
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    const auto note = [&] {
      longest = std::max(longest, MsOf(since));
      since.restart();
    };
    QObject::connect(&timer, &QTimer::timeout, &loop, note);
    QObject::connect(frame_, SIGNAL(PageShown()), &loop, SLOT(quit()));
    QTimer::singleShot(kLongestWaitMs, &loop, [] {
      fmt::print(stderr, "the page was not painted\n");
      std::_Exit(1);
    });
    timer.start(1);
    loop.exec();
    note();
    return longest;
  }

  void* const module_;
  QWidget host_;
  QWidget* const frame_;
  QTreeView* list_ = nullptr;
};

// Memory of this process and its descendants.

// The number behind `field` in a file of lines like "Pss:  120 kB"; -1 without it.
long ProcNumber(const std::filesystem::path& file, std::string_view field) {
  std::ifstream lines(file);
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with(field)) return std::atol(line.c_str() + field.size());
  }
  return -1;
}

// The ids of this process and its descendants, parents first.
std::vector<long> Family() {
  std::multimap<long, long> children;
  for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
    const long process = std::atol(entry.path().filename().c_str());
    if (process > 0) children.emplace(ProcNumber(entry.path() / "status", "PPid:"), process);
  }
  std::vector<long> family{getpid()};
  for (std::size_t i = 0; i < family.size(); ++i) {
    const auto [first, last] = children.equal_range(family[i]);
    std::transform(first, last, std::back_inserter(family),
                   [](auto& child) { return child.second; });
  }
  return family;
}

// The proportional set size (PSS) of each process in MB.
std::vector<double> MemoryOfAll() {
  std::vector<double> parts;
  for (const long process : Family()) {
    const long kb = ProcNumber(fmt::format("/proc/{}/smaps_rollup", process), "Pss:");
    if (kb < 0) fmt::print(stderr, "process {} does not tell its memory\n", process);
    parts.push_back(static_cast<double>(std::max(kb, 0L)) / 1024);
  }
  return parts;
}

// The memory of all processes while posts are shown. The engine frees memory only now and then, so
// the highest of many values is compared.
class MemoryCourse {
 public:
  void Note(int shown) {
    if (shown % kBetween != 0) return;
    const std::vector<double> parts = MemoryOfAll();
    const double all = std::reduce(parts.begin(), parts.end());
    course_.push_back(all);
    if (shown != kTimed && shown % (kClicks / 2) != 0) return;
    fmt::print("memory after {:4} posts: {:.1f} MB, own process {:.1f}, engine's {:.1f}\n", shown,
               all, parts.front(), fmt::join(parts.begin() + 1, parts.end(), " "));
  }

  bool LevelsOff() const {
    const auto middle = course_.begin() + std::ssize(course_) / 2;
    const double first = *std::max_element(course_.begin(), middle);
    const double second = *std::max_element(middle, course_.end());
    fmt::print("memory after each {} posts: {:.0f} MB\n", kBetween, fmt::join(course_, " "));
    return MeetsAtMost("growth of the highest memory in the second half of the posts",
                       100 * (second / first - 1), kGrowthGoal, "%");
  }

 private:
  static constexpr int kBetween = 20;

  std::vector<double> course_;
};

// Prints the median and the maximum of `value` over the clicks, and returns the maximum.
double Print(const char* label, std::span<const Click> clicks, double Click::*value) {
  std::vector<double> values;
  for (const Click& click : clicks) values.push_back(click.*value);
  std::ranges::sort(values);
  fmt::print("  {:<44} median {:6.1f}, worst {:6.1f} ms\n", label, values[values.size() / 2],
             values.back());
  return values.back();
}

double PrintClicks(std::span<const Click> clicks, int first) {
  fmt::print("clicks {} to {}\n", first + 1, first + static_cast<int>(clicks.size()));
  Print("from the click to the page painted", clicks, &Click::painted);
  Print("in the handler of the click", clicks, &Click::handler);
  Print("CPU time in it, without the pauses", clicks, &Click::cpu);
  return Print("interface thread blocked", clicks, &Click::blocked);
}

bool MeasureClicks(void* module) {
  ModuleWindow window(module);
  std::vector<Click> clicks;
  MemoryCourse memory;
  for (int row = 1; row <= kClicks; ++row) {
    clicks.push_back(window.ClickOn(row));
    memory.Note(row);
  }
  const std::span<const Click> all(clicks);
  const double blocked = PrintClicks(all.first(kTimed), 0);
  PrintClicks(all.last(kTimed), kClicks - kTimed);
  const bool answers =
      MeetsAtMost("the interface thread's longest block by one of the first clicks", blocked,
                  kBlockedGoalMs, " ms");
  return memory.LevelsOff() && answers;
}

int Main(int argc, char** argv) {
  const TestProfile profile;
  // The host keeps it, as halvix does.
  const KeptDatabase kept =
      KeepDatabase(profile.Paths().database, ShareDir(), std::chrono::seconds(1));
  Database database(profile);
  database.Fill();
  void* const module = LoadModule(profile);
  if (module == nullptr) return 1;
  const QApplication application(argc, argv);
  const bool builds = MeasureBuilding(argc, argv);
  const bool answers = MeasureClicks(module);
  const int unread = database.Unread();
  if (unread != 0) fmt::print(stderr, "{} posts were not shown\n", unread);
  return builds && answers && unread == 0 ? 0 : 1;
}

}  // namespace
}  // namespace feedloom

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  if (geteuid() == 0) qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
  return feedloom::Main(argc, argv);
}
