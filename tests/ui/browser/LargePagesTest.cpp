// Pages that are too much for the engine: the interface thread goes on meanwhile, and a render
// process that comes to its end is no more than a page to load again.
#include <signal.h>
#include <time.h>

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>
#include <algorithm>
#include <iostream>
#include <utility>
#include <vector>

#include "ui/browser/HtmlViewFixture.h"

namespace feedloom {
namespace {

struct Gap {
  qint64 milliseconds = 0;
  qint64 atWork = 0;  // of these, the milliseconds in which the thread had a processor
};

qint64 ThreadTime() {
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return time.tv_sec * 1000 + time.tv_nsec / 1'000'000;
}

// The longest time in which the interface thread did nothing else.
class Heartbeat {
 public:
  Heartbeat() {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Beat(); });
    timer_.setTimerType(Qt::PreciseTimer);
    timer_.start(5);
    sinceBeat_.start();
  }
  Gap LongestGap() {
    Beat();
    return longest_;
  }

 private:
  void Beat() {
    const qint64 now = ThreadTime();
    const Gap gap{sinceBeat_.restart(), now - std::exchange(threadTime_, now)};
    if (gap.milliseconds > longest_.milliseconds) longest_ = gap;
  }

  QTimer timer_;
  QElapsedTimer sinceBeat_;
  qint64 threadTime_ = ThreadTime();
  Gap longest_;
};

// Up to 55 were seen on a machine with nothing else to do, up to 1,600 on one whose processors were
// all busy, where the thread waits for its turn as well.
constexpr qint64 kLongestGap = 5000;  // milliseconds
constexpr qint64 kMostWork = 500;     // milliseconds of a gap

class LargePages : public HtmlViewFixture {
 protected:
  static void Wait(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
  }

  bool ComesTo(const QUrl& url) {
    QSignalSpy changes(&Page(), &QWebEnginePage::urlChanged);
    while (Page().url() != url) {
      if (!changes.wait(20'000)) return false;
    }
    return true;
  }

  void KillRenderer() {
    const qint64 process = Page().renderProcessPid();
    ASSERT_GT(process, 0);
    WaitForPage([&] { kill(static_cast<pid_t>(process), SIGKILL); });
  }

  void ExpectCrashAndReturn(const QString& text) {
    ASSERT_EQ(Text(), text);
    KillRenderer();
    EXPECT_TRUE(Text().startsWith("crashed")) << Text().toStdString();
    EXPECT_TRUE(ClickLeadsTo(text));
  }
};

struct Monster {
  const char* name;
  QByteArray body;
};

std::vector<Monster> Monsters() {
  const QByteArray odd("\xFF\xFE\x80\0\xC3(\xED\xA0\x80\xF4\x90\x80\x80\x1B\x7F", 15);
  return {{"20 MB", ("<p>" + QByteArray(1000, 'x') + " words of a post</p>\n").repeated(20 << 10)},
          {"100,000 rows", "<table>" + QByteArray("<tr><td>row<td>cell").repeated(100'000)},
          {"a line of 10 MB", QByteArray("word ").repeated((10 << 20) / 5)},
          {"100,000 deep", QByteArray("<div>").repeated(100'000)},
          {"odd bytes", odd.repeated(100'000)}};
}

// The page's end is not waited for: the render process may need a minute.
TEST_F(LargePages, LeaveTheInterfaceThreadFreeAndCanBeLeft) {
  server_.Serve("/next", "the next page", "text/html");
  for (const auto& [name, body] : Monsters()) {
    Write("before");
    Heartbeat heartbeat;
    view_.WritePageToBrowser({"<html><head></head><body>" + body});
    Wait(1000);
    QElapsedTimer time;
    time.start();
    QSignalSpy shown(&view_, &CRSS_HtmlView::PageShown);
    view_.Navigate(Url("/next"));
    EXPECT_TRUE(ComesTo(Url("/next"))) << name;
    const qint64 leaving = time.elapsed();
    while (Text() != "the next page") ASSERT_TRUE(shown.wait(20'000)) << name;
    const Gap gap = heartbeat.LongestGap();
    std::cout << name << ": left in " << leaving << " ms, the interface thread was held for "
              << gap.milliseconds << " ms and worked for " << gap.atWork << "\n";
    EXPECT_LT(gap.milliseconds, kLongestGap) << name;
    EXPECT_LT(gap.atWork, kMostWork) << name;
  }
}

// A page of the same host would wait for the process that is busy with the large one.
TEST_F(LargePages, DoNotKeepTheNextPostWaiting) {
  for (const auto& [name, body] : Monsters()) {
    view_.WritePageToBrowser({"<html><head></head><body>" + body});
    Wait(300);
    QElapsedTimer time;
    time.start();
    view_.WritePageToBrowser({"<html><head></head><body>the next post"});
    QSignalSpy shown(&view_, &CRSS_HtmlView::PageShown);
    ASSERT_TRUE(shown.wait(10'000)) << name;
    EXPECT_EQ(Text(), "the next post") << name;
    std::cout << name << ": the next post came after " << time.elapsed() << " ms\n";
  }
}

TEST_F(LargePages, DoNotKeepTheWayBackWaiting) {
  const QByteArray rows = "<table>" + QByteArray("<tr><td>row<td>cell").repeated(100'000);
  Write("before");
  view_.WritePageToBrowser({"<html><head></head><body>" + rows});
  QSignalSpy committed(&Page(), &QWebEnginePage::urlChanged);
  ASSERT_TRUE(committed.wait(20'000));
  const auto goBack = [&] {
    QSignalSpy shown(&view_, &CRSS_HtmlView::PageShown);
    view_.GoBack();
    return shown.wait(10'000) && Text() == "before";
  };
  EXPECT_TRUE(goBack());
  view_.GoForward();
  ASSERT_TRUE(committed.wait(20'000));
  view_.WritePageToBrowser({"<html><head></head><body>the next post"});
  QSignalSpy shown(&view_, &CRSS_HtmlView::PageShown);
  ASSERT_TRUE(shown.wait(10'000));
  EXPECT_EQ(Text(), "the next post");
}

TEST_F(LargePages, ACrashedPageSaysSoAndIsLoadedAgain) {
  server_.Serve("/page", "a web page", "text/html");
  Navigate(Url("/page"));
  ExpectCrashAndReturn("a web page");
  Write("a post");
  ExpectCrashAndReturn("a post");
}

}  // namespace
}  // namespace feedloom
