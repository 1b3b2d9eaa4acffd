// Pages that are too much for the engine: the interface thread goes on meanwhile, the next page
// does not wait, and a renderer process that ends is no more than a page to load again.
#include <signal.h>
#include <time.h>

#include "ui/browser/BrowserFixture.h"

namespace feedloom {
namespace {

class LargePages : public BrowserFixture {
 protected:
  // Shows `next` while `page` is being laid out.
  void Overtake(const QByteArray& page, const QString& text, const std::function<void()>& next) {
    QSignalSpy committed(&Page(), &QWebEnginePage::urlChanged);
    view_.WritePageToBrowser({page});
    EXPECT_TRUE(committed.wait(30'000));
    const QUrl large = Page().url();
    QSignalSpy shown(&view_, &CRSS_HtmlView::PageShown);
    next();
    do ASSERT_TRUE(shown.wait(10'000));
    while (Page().url() == large);
    EXPECT_EQ(Text(), text);
  }
};

// In milliseconds; other programs on the machine do not count.
qint64 WorkOfThisThread() {
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return time.tv_sec * 1000 + time.tv_nsec / 1'000'000;
}

TEST_F(LargePages, LeaveTheInterfaceThreadFreeAndDoNotKeepOthersWaiting) {
  const QByteArray odd("\xFF\xFE\x80\0\xC3(\xED\xA0\x80\xF4\x90\x80\x80\x1B\x7F", 15);
  const std::pair<const char*, QByteArray> pages[] = {
      {"20 MB", ("<p>" + QByteArray(1000, 'x') + " words of a post</p>\n").repeated(20 << 10)},
      {"100,000 rows", "<table>" + QByteArray("<tr><td>row<td>cell").repeated(100'000)},
      {"a line of 10 MB", QByteArray("word ").repeated((10 << 20) / 5)},
      {"100,000 deep", QByteArray("<div>").repeated(100'000)},
      {"odd bytes", odd.repeated(100'000)}};
  server_.Serve("/next", "the next page", "text/html");
  for (const auto& [name, page] : pages) {
    SCOPED_TRACE(name);
    qint64 longest = 0;
    QTimer beat;
    QObject::connect(&beat, &QTimer::timeout, [&, last = WorkOfThisThread()]() mutable {
      const qint64 now = WorkOfThisThread();
      longest = std::max(longest, now - std::exchange(last, now));
    });
    beat.start(5);
    Overtake(page, "the next post", [&] { view_.WritePageToBrowser({"the next post"}); });
    Overtake(page, "the next post", [&] { view_.GoBack(); });
    Overtake(page, "the next page", [&] { view_.Navigate(Url("/next")); });
    EXPECT_LT(longest, 500);
  }
}

TEST_F(LargePages, ACrashedPageSaysSoAndIsLoadedAgain) {
  const auto crash = [&] {
    const auto renderer = static_cast<pid_t>(Page().renderProcessPid());
    ASSERT_GT(renderer, 0);
    kill(renderer, SIGKILL);
  };
  Visit("/page", "a web page");
  for (const QString text : {"a web page", "a post"}) {
    if (text == "a post") Write("a post");
    WaitForPage(crash);
    EXPECT_EQ(Evaluate("document.links.length"), 1) << Text().toStdString();
    WaitForPage([&] { Click("a"); });
    EXPECT_EQ(Text(), text);
  }
  WaitForPage(crash);
  QSignalSpy ended(&Page(), &QWebEnginePage::renderProcessTerminated);
  crash();  // now of the page that says so: it is not shown again
  EXPECT_TRUE(ended.wait(30'000));
  QCoreApplication::processEvents();
  EXPECT_FALSE(view_.IsLoading());
}

}  // namespace
}  // namespace feedloom
