// What a load becomes when something happens, and what a page may then ask.
#include <gtest/gtest.h>

#include <QKeyEvent>
#include <sstream>

#include "ui/browser/PageQuestions.h"

namespace feedloom {
namespace {

// A page on display and one load after the other. An event is a word: `user`, `link`, `page` and
// `script` (a script's Back or Reload) begin a load of the address behind the colon, `server`
// redirects it; `at` is the page on display's new address, `whole` and `broken` end the load.
class Story {
 public:
  void Tell(const std::string& word) {
    const QStringList parts = QString::fromStdString(word).split('=');
    const QUrl to(parts.value(1));
    if (parts[0] == "user") Begin(NavigationCause::Command, to, true);
    if (parts[0] == "script") Begin(NavigationCause::Command, to, false);
    if (parts[0] == "link") Begin(NavigationCause::Link, to, false);
    if (parts[0] == "page") Begin(NavigationCause::Page, to, false);
    if (parts[0] == "server") Begin(NavigationCause::Server, to, false);
    if (parts[0] == "at") load_ = Arrived(load_, shown_ = to);
    if (parts[0] == "whole" && IsEndOf(load_, to)) load_ = Ended(load_, true);
    if (parts[0] == "broken" && IsEndOf(load_, to)) load_ = Ended(load_, false);
    if (parts[0] == "drawn") load_ = Drawn(load_);
    if (parts[0] == "touch") load_ = Touched(load_);
    if (parts[0] == "save") Save(to);
    if (parts[0] == "login") LogIn(to, false);
    if (parts[0] == "proxy") LogIn(to, true);
  }
  // The phase's first letter, + when the user gave the address, ! when he has touched the page, and
  // what became of each question: y when it was asked, t when its refusal was told, n otherwise.
  std::string State() const {
    std::string state(1, "RAED"[static_cast<std::size_t>(load_.phase)]);
    if (!load_.given.isEmpty()) state += '+';
    if (load_.hasGesture) state += '!';
    return state + asked_;
  }

 private:
  void Begin(NavigationCause cause, const QUrl& to, bool isUsers) {
    load_ = Begun(load_, {.from = shown_, .to = to, .cause = cause}, isUsers);
  }
  void Save(const QUrl& from) {
    const DownloadVerdict verdict = JudgeDownload(load_, from);
    load_ = Judged(load_, verdict);
    asked_ += "ytn"[static_cast<std::size_t>(verdict)];
  }
  void LogIn(const QUrl& address, bool isProxy) {
    const LoginQuestion question = {isProxy ? "proxy" : HostOf(address), {}, isProxy};
    const bool isAsked = MayAskLogin(load_, address, question);
    if (isAsked) load_ = LoginAsked(load_, question);
    asked_ += isAsked ? 'y' : 'n';
  }

  PageLoad load_;
  QUrl shown_{"http://h/"};
  std::string asked_;
};

TEST(PageLoad, GoesFromPhaseToPhaseAndThePageAsksForWhatTheUserDid) {
  const std::pair<const char*, const char*> rows[] = {
      {"", "D"},
      {"user=http://a/", "R+"},
      {"user=http://a/ at=http://b/", "R+"},
      {"user=http://a/ at=http://a/", "A"},
      {"user=http://h/", "A+"},  // again; the coming is not reported
      {"user=http://a/ drawn", "R+"},
      {"user=http://a/ at=http://a/ whole", "E"},
      {"user=http://a/ at=http://a/ whole drawn", "D"},
      {"user=http://h/ whole", "E"},
      {"user=http://a/ broken", "E+"},  // it may become a download
      {"link=http://a/", "R"},          // a script can click
      {"page=http://a/", "R"},
      {"script=http://h/", "A"},
      {"touch link=http://a/", "R+!"},
      {"touch page=http://a/ at=http://a/", "A"},
      {"touch at=http://h/part", "D!"},  // the same page still
      {"at=feedloom://page/1 link=http://a/", "R+"},
      {"user=http://a/ server=http://b/", "R+"},
      {"user=http://a/ user=http://b/ broken=http://a/ server=http://c/", "R+"},
      {"page=http://a/ server=http://b/", "R"},
      // Downloads: of the address given, wherever servers redirect it, or once a gesture.
      {"save=http://h/z save=http://h/z", "Dtn"},
      {"user=http://a/z broken save=http://a/z save=http://a/z", "Eyt"},
      {"user=http://a/z whole save=http://a/z", "Ey"},  // the end of the load before
      {"user=http://a/z#part server=http://b/z broken save=http://b/z", "Ey"},
      {"user=http://a/z save=http://h/z", "R+t"},
      {"user=http://a/ at=http://a/ save=http://a/", "At"},
      {"page=http://h/z broken save=http://h/z", "Et"},
      {"script=http://h/z broken save=http://h/z", "Et"},
      {"touch save=blob:http://h/1 save=blob:http://h/2 save=data:x", "Dytn"},
      {"touch link=http://h/z broken save=http://h/z save=http://h/z", "Eyt"},
      {"save=http://h/z touch save=http://h/z save=http://h/z", "Dtyt"},
      // Logins: for the page that the user opens, once each host.
      {"user=http://a/x login=http://a/x login=http://a/x", "R+yn"},
      {"user=http://a/x login=http://a/picture login=http://h/", "R+nn"},
      {"user=http://a/x login=http://a/x server=http://b/ login=http://b/ login=http://a/",
       "R+yyn"},
      {"user=http://a/x login=http://a/x user=http://a/x login=http://a/x", "R+yy"},
      {"user=http://a/x at=http://a/x login=http://a/x", "An"},
      {"page=http://a/x login=http://a/x", "Rn"},
      {"touch page=http://a/x login=http://a/x save=http://a/x save=http://h/", "Ryyt"},
      {"user=http://a/x proxy=http://a/ login=http://a/x proxy=http://a/x", "R+yyn"},
      {"user=http://a/x proxy=http://b/", "R+n"}};
  for (const auto& [events, state] : rows) {
    Story story;
    std::istringstream words(events);
    for (std::string word; words >> word;) story.Tell(word);
    EXPECT_EQ(story.State(), state) << events;
  }
}

TEST(PageQuestions, KnowAGestureAHostAndALine) {
  const auto key = [](int code) { return IsGesture(QKeyEvent(QEvent::KeyPress, code, {})); };
  EXPECT_TRUE(key(Qt::Key_Return) && key(Qt::Key_A) && IsGesture(QEvent(QEvent::TouchBegin)));
  EXPECT_TRUE(IsGesture(QEvent(QEvent::MouseButtonPress)));
  EXPECT_FALSE(key(Qt::Key_Escape) || key(Qt::Key_Shift) || IsGesture(QEvent(QEvent::MouseMove)) ||
               IsGesture(QEvent(QEvent::Wheel)) || IsGesture(QEvent(QEvent::KeyRelease)));
  const auto isTab = [](int code) { return IsTab(QKeyEvent(QEvent::KeyPress, code, {})); };
  EXPECT_TRUE(isTab(Qt::Key_Tab) && isTab(Qt::Key_Backtab));
  EXPECT_FALSE(isTab(Qt::Key_Return) || IsTab(QEvent(QEvent::MouseButtonPress)));
  for (const char* const row :
       {"http://u:p@h/x > h", "https://h:8443/ > h:8443", "blob:http://h:8/1 > h:8",
        "http://\u0430pple.com/ > xn--pple-43d.com", "data:text/html,x > ", "file:///x > "}) {
    const QStringList parts = QString(row).split(" > ");
    EXPECT_EQ(HostOf(QUrl(parts[0])), parts[1]) << row;
  }
  const QString label(55, 'a');
  EXPECT_EQ(HostOf(QUrl("http://bank.com." + label + ".evil.com/")),
            "\u2026" + label.right(51) + ".evil.com");
  EXPECT_EQ(OneLine("a\u202E\tb\n c\u200B"), "a b c");
  EXPECT_EQ(OneLine(QString(100, 'x')), QString(80, 'x') + "\u2026");
}

}  // namespace
}  // namespace feedloom
