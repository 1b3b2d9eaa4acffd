// Pages that the engine does not get ready, and those whose renderer process ends.
#include <signal.h>

#include <climits>

#include "ui/browser/BrowserFixture.h"

namespace feedloom {

using LargePages = BrowserFixture;

static pid_t Renderer(const QWebEnginePage& page) {
  const auto pid = static_cast<pid_t>(page.renderProcessPid());
  EXPECT_GT(pid, 0);
  return pid > 0 ? pid : INT_MAX;  // a signal to 0 would hit this process
}

// The renderer process stands still, as if the page took it forever.
TEST_F(LargePages, DoNotKeepOthersWaiting) {
  server_.Serve("/next", "the next page", "text/html");
  Write("the page before");
  const std::tuple<const char*, QString, std::function<void()>> nexts[] = {
      {"/1", "the page before", [&] { view_.GoBack(); }},
      {"/2", "a post", [&] { view_.WritePageToBrowser({"a post"}); }},
      {"/3", "the next page", [&] { view_.Navigate(Url("/next")); }}};
  for (const auto& [image, text, next] : nexts) {
    server_.Hang(image);
    const auto before = Page().renderProcessPid();
    view_.WritePageToBrowser({QByteArray("<p>words of a post").repeated(20'000) + "<img src='" +
                              Url(image).toUtf8() + "'>"});
    ASSERT_TRUE(WasRequested(image));
    // The view takes the large page's own process a moment after that has asked for the image.
    ASSERT_TRUE(ComesTrue([&] { return Page().renderProcessPid() != before; }));
    const auto renderer = Renderer(Page());
    kill(renderer, SIGSTOP);
    WaitForPage(next);
    kill(renderer, SIGCONT);
    EXPECT_EQ(Text(), text);
  }
}

TEST_F(LargePages, ACrashedPageSaysSoAndIsLoadedAgain) {
  const auto crash = [&] { kill(Renderer(Page()), SIGKILL); };
  Write("a post");
  WaitForPage(crash);
  EXPECT_EQ(Evaluate("document.links.length"), 1) << Text().toStdString();
  WaitForPage([&] { Click("a"); });
  EXPECT_EQ(Text(), "a post");
}

}  // namespace feedloom
