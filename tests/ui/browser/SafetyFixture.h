// The browser as an attacker meets it, who writes a post's texts; and beside it one without the
// defence, in which the same attacks must work: a test that sees nothing there proves nothing.
#pragma once

#include <QApplication>
#include <QDialog>
#include <QWebEngineProfile>
#include <QWebEngineScript>
#include <QWebEngineSettings>
#include <array>
#include <memory>
#include <span>

#include "ui/browser/ComesTrue.h"
#include "ui/browser/HtmlViewFixture.h"
#include "ui/browser/PageScheme.h"
#include "ui/page/Pages.h"

namespace feedloom {

// In the HTML, HIT is an address of the attack's own at the test's server, and RUN a script that
// asks for it. RUN contains single quotes.
struct Attack {
  const char* name;
  const char* html;
};

// A plain page of the engine: its scripts run, and it knows generated pages without a policy.
class Undefended {
 public:
  explicit Undefended(SkinDirectory skinDir) : scheme_(std::move(skinDir), nullptr) {
    profile_.installUrlSchemeHandler(kPageScheme, &scheme_);
    // It may do what it likes.
    page_.settings()->setAttribute(QWebEngineSettings::LocalContentCanAccessRemoteUrls, true);
    view_.setPage(&page_);
    view_.resize(400, 300);
    view_.show();
    view_.activateWindow();
  }
  ~Undefended() { view_.setParent(nullptr); }

  QWebEnginePage& Page() { return page_; }
  QWidget* Surface() { return view_.focusProxy(); }

  void Load(const QUrl& url) {
    view_.activateWindow();
    view_.setFocus();
    QSignalSpy loaded(&page_, &QWebEnginePage::loadFinished);
    page_.load(url);
    EXPECT_TRUE(loaded.wait(20'000));
  }
  QUrl Write(const QByteArray& html) {
    const QUrl url = GeneratedPageUrl(scheme_.Pages().Add({.html = html}));
    Load(url);
    return url;
  }
  QUrl WriteAsFile(const QByteArray& html) {
    const std::string file = files_.Write("page.html", html.toStdString());
    Load(QUrl::fromLocalFile(QString::fromStdString(file)));
    return page_.url();
  }

 private:
  TempFolder files_;
  PageSchemeHandler scheme_;
  QWebEngineProfile profile_;
  QWebEnginePage page_{&profile_};
  QWebEngineView view_;
};

class SafetyFixture : public HtmlViewFixture {
 protected:
  // Title, link, description, date and feed URL of a post.
  using Fields = std::array<std::string, 5>;
  enum Field : std::size_t { kTitle, kLink, kDescription, kDate, kFeedUrl };
  static inline const Fields kHarmless = {"A title", "http://127.0.0.1/post", "A description",
                                          "2024-05-06 07:08:09", "http://127.0.0.1/feed"};

  SafetyFixture() {
    QObject::connect(&view_, &CRSS_HtmlView::ActionClicked, &view_,
                     [this](const PageAction& action, const QStringList& texts) {
                       actions_.emplace_back(action, texts);
                     });
    QObject::connect(&view_, &CRSS_HtmlView::OutsideWanted, &view_,
                     [this](const QUrl& url) { outsideWanted_.push_back(url); });
    view_.activateWindow();
  }

  static QByteArray Built(PageKind kind, const Fields& f) {
    static constexpr auto kCharset = "utf-8";
    if (kind == PageKind::Player) {
      return QByteArray::fromStdString(
          BuildPodcastPlayerPage(f[kTitle], f[kLink], f[kDescription], f[kDate], {}));
    }
    const auto build = kind == PageKind::Podcast ? BuildPodcastPreviewPage : BuildPostPreviewPage;
    return QByteArray::fromStdString(build(1, {f[kTitle]}, {f[kLink]}, {f[kDescription]},
                                           {f[kDate]}, {f[kFeedUrl]}, true, {}, kCharset));
  }
  static QByteArray WithDescription(const QByteArray& hostile) {
    Fields fields = kHarmless;
    fields[kDescription] = hostile.toStdString();
    return Built(PageKind::Post, fields);
  }

  // Makes an element the one that Click() hits.
  static constexpr char kCover[] =
      "style=\"position:fixed;left:0;top:0;width:300px;height:200px;z-index:9\"";

  static std::string HitPath(const std::string& name) { return "/hit/" + name; }
  int Hits(const std::string& name) const { return server_.Requests(HitPath(name)); }
  QByteArray Html(const Attack& attack) {
    return QByteArray(attack.html)
        .replace("ORIGIN", Url("").toEncoded())
        .replace("COVER", kCover)
        .replace("RUN", "new Image().src='HIT'")
        .replace("HIT", QByteArray::fromStdString(server_.Url(HitPath(attack.name))));
  }
  QByteArray Html(std::span<const Attack> attacks) {
    QByteArray all;
    for (const Attack& attack : attacks) all += "<div>" + Html(attack) + "</div>\n";
    return all;
  }
  void ExpectNoHits(std::span<const Attack> attacks) {
    for (const Attack& attack : attacks) EXPECT_EQ(Hits(attack.name), 0) << attack.name;
  }
  void ExpectHits(std::span<const Attack> attacks) {
    for (const Attack& attack : attacks) {
      EXPECT_TRUE(ComesTrue([&] { return Hits(attack.name) > 0; }))
          << attack.name << " does not work without the defence either";
    }
  }

  // Asked in a world that the page cannot enter.
  static QVariant Ask(QWebEnginePage& page, const QString& script) {
    const auto answer = std::make_shared<std::optional<QVariant>>();
    page.runJavaScript(script, QWebEngineScript::ApplicationWorld,
                       [answer](const QVariant& value) { *answer = value; });
    EXPECT_TRUE(ComesTrue([&] { return answer->has_value(); }));
    return answer->value_or(QVariant());
  }

  // Where scripts are off no timer runs, but frames are drawn.
  static constexpr char kTitleLater[] = R"((end => {
    const title = Object.getOwnPropertyDescriptor(Document.prototype, 'title');
    const look = now => now < end ? requestAnimationFrame(look) : title.set.call(document, '%2');
    requestAnimationFrame(look);
  })(performance.now() + %1))";
  // Comes back when the page has had so much time, by its own clock, for what it does by itself.
  void LetLive(QWebEnginePage& page, int milliseconds = 60) {
    const QString title = "settled " + QString::number(++settled_);
    page.runJavaScript(QString(kTitleLater).arg(milliseconds).arg(title),
                       QWebEngineScript::ApplicationWorld);
    EXPECT_TRUE(ComesTrue([&] { return page.title() == title; })) << "the page stands still";
  }
  // The server, too, has then seen what the page has asked for.
  void Settle(QWebEnginePage& page, int milliseconds = 60) {
    LetLive(page, milliseconds);
    undefended_.Load(Url("/settled"));
  }

  void ExpectNothingOpen() {
    for (const QWidget* const window : QApplication::topLevelWidgets()) {
      EXPECT_FALSE(window->isVisible() && qobject_cast<const QDialog*>(window) != nullptr)
          << window->windowTitle().toStdString();
    }
    EXPECT_TRUE(actions_.empty());
    EXPECT_TRUE(outsideWanted_.empty());
  }

  // Shows the page; it must still be there when it has settled.
  void ShowAndSettle(const QByteArray& html, PageKind kind = PageKind::Post) {
    WriteWhole(html, kind);
    const QUrl shown = Page().url();
    Settle(Page());
    EXPECT_EQ(Page().url(), shown);
    EXPECT_TRUE(view_.IsWritten());
    ExpectNothingOpen();
  }

  Undefended undefended_{[this] { return QString::fromStdString(skin_.Path()); }};
  std::vector<std::pair<PageAction, QStringList>> actions_;
  std::vector<QUrl> outsideWanted_;

 private:
  int settled_ = 0;
};

}  // namespace feedloom
