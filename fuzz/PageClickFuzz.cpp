// Puts any addresses and texts into a page, and checks where a click leads, what the page's buttons
// do, and which local files the page can read.
#include <algorithm>
#include <filesystem>
#include <fstream>

#include "feed/WebAddress.h"
#include "fuzz/FuzzKit.h"
#include "net/Url.h"
#include "ui/browser/DownloadFiles.h"
#include "ui/browser/FeedLinks.h"
#include "ui/browser/NavigationRules.h"
#include "ui/browser/PageRules.h"
#include "ui/page/Pages.h"

namespace feedloom {
namespace {

using enum NavigationCause;
using enum NavigationVerdict;

// Decides by the whole address, as it is passed to the system and the engine. An address that QUrl
// cannot parse has only its scheme.
bool BeginsWithOneOf(const QUrl& url, std::initializer_list<const char*> schemes) {
  const QByteArray address = url.isValid() ? url.toEncoded() : url.scheme().toUtf8() + ':';
  return std::ranges::any_of(schemes,
                             [&](const char* scheme) { return address.startsWith(scheme); });
}

void CheckVerdict(const Navigation& navigation) {
  const NavigationVerdict verdict = Judge(navigation);
  const bool isGenerated = IsGenerated(navigation.from);
  if (!navigation.isMainFrame) {
    Require(verdict == Follow || verdict == Refuse, "a frame does nothing but load");
    const bool mayLoad = !isGenerated || navigation.isFromPlayer;
    Require(verdict == Refuse || mayLoad, "of the module's pages only the player has a frame");
  }
  const bool isClick = navigation.cause == Link && navigation.isMainFrame;
  if (verdict == Act || verdict == OpenOutside || verdict == Report) {
    Require(isClick, "nothing but a click of the user asks for something");
  }
  if (verdict == OpenOutside) {
    Require(BeginsWithOneOf(navigation.to, {"mailto:"}), "only a mail program is opened");
  }
  if (verdict == Act) {
    Require(ParsePageAction(navigation.to.toString(QUrl::FullyEncoded)).has_value(),
            "only a button's address acts");
  }
  if (verdict != Follow) return;
  if (isGenerated) {
    Require(BeginsWithOneOf(navigation.to, {"http:", "https:"}),
            "a page of the module's own leads to web pages only");
    Require(navigation.cause != Page || !navigation.isMainFrame,
            "a page of the module's own leads nowhere by itself");
  } else {
    Require(BeginsWithOneOf(navigation.to, {"http:", "https:", "about:", "blob:", "data:"}),
            "a web page leads neither to files nor to the module's pages");
  }
}

void CheckNavigations(const QUrl& from, const QUrl& to) {
  for (const NavigationCause cause : {Link, Server, Page}) {
    for (const bool isMainFrame : {true, false}) {
      for (const bool isFromPlayer : {true, false}) {
        const QUrl own = GeneratedPageUrl(7);
        CheckVerdict({own, to, cause, isMainFrame, isFromPlayer});
        CheckVerdict({AtHost(own, 2), to, cause, isMainFrame, isFromPlayer});
        if (IsWebAddress(from)) CheckVerdict({from, to, cause, isMainFrame, false});
      }
    }
  }
  const bool isAction = ParsePageAction(to.toString(QUrl::FullyEncoded)).has_value();
  Require(Judge({from, to, Command}) == (isAction ? Report : Follow),
          "a command leads everywhere but to a button");
}

void CheckAction(const QString& target) {
  const auto action = ParsePageAction(target);
  const QString name = target.section('?', 0, 0);
  Require(
      action.has_value() == (name.contains("ID_BTN_RSSSCRAP") || name.contains("ID_BTN_RSSADD")),
      "a button is known by its name before the question mark");
  if (!action) return;
  for (const QString& id : ElementIds(*action)) {
    Require(id.section('-', 1) == QString::number(action->number), "an element has its number");
  }
}

// Follows the address of an announced feed up to the check that the dialog does.
void CheckFeedLink(const QString& href, const QString& domain, const QString& document) {
  const QString resolved = ResolveFeedLink(href, domain, document);
  const std::string address = CompleteFeedAddress(resolved.toStdString(), "http");
  if (!IsWebAddress(std::string_view(address))) return;
  const QUrl url(QString::fromStdString(address));
  Require(!url.isValid() || IsWebAddress(url), "what a page brings is of the web");
  const std::string scheme = UrlScheme(address);
  Require(scheme.empty() || scheme == "http" || scheme == "https", "what is fetched is of the web");
}

// Creates a skin with two files and a symbolic link to a folder outside it. Also silences Qt's
// warnings about unusual paths.
QString MakeSkin() {
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
  const std::string folder = ScratchFolder();
  std::filesystem::create_directories(folder + "/skin/sub");
  std::filesystem::create_directories(folder + "/skin2");
  for (const char* name : {"/skin/a.png", "/skin/sub/b.css", "/secret", "/skin2/c.png"}) {
    std::ofstream(folder + name) << "x";
  }
  std::error_code ignored;
  std::filesystem::create_symlink("../secret", folder + "/skin/link", ignored);
  return QString::fromStdString(folder + "/skin");
}

void CheckSkinFile(const QString& path) {
  static const QString skin = MakeSkin();
  for (const QUrl& url : {SkinFileUrl(skin + '/' + path), SkinFileUrl(path),
                          QUrl("feedloom://page" + skin + '/' + path)}) {
    const QString file = SkinFile(url, skin);
    Require(file.isEmpty() || file == skin + "/a.png" || file == skin + "/sub/b.css",
            "nothing outside the skin's directory is read");
  }
}

// Returns the start of a page with this text, up to its content security policy.
QByteArray HeadOf(const std::string& text, PageKind kind) {
  const PageTexts texts = {text};
  const std::string html =
      kind == PageKind::Player
          ? BuildPodcastPlayerPage(text, text, text, text, {})
          : BuildPostPreviewPage(1, texts, texts, texts, texts, texts, true, {}, "utf-8");
  const QByteArray page = WithHead(QByteArray::fromStdString(html), kind, true, {});
  const qsizetype policy = page.indexOf("<meta http-equiv=\"Content-Security-Policy\"");
  Require(policy >= 0, "each page has a policy");
  return page.left(policy);
}

void CheckHead(const std::string& text) {
  for (const PageKind kind : {PageKind::Post, PageKind::Player}) {
    RequireEqual(HeadOf(text, kind).toStdString(), HeadOf("", kind).toStdString(),
                 "no text of a feed stands before the policy");
  }
}

void CheckFileName(const QString& suggested) {
  const QString name = SafeFileName(suggested);
  Require(!name.isEmpty() && name.toUtf8().size() <= 200, "a file's name is of a file's length");
  Require(!name.contains('/') && !name.contains('\\') && !name.startsWith('.'),
          "a file's name leads to no directory and hides nothing");
  Require(std::ranges::none_of(name, [](QChar c) { return c < ' ' || c == QChar(0x202E); }),
          "a file's name is what it looks like");
}

}  // namespace

void CheckInput(FuzzInput input) {
  const std::string text = input.TakeText();
  const QString to = QString::fromStdString(text);
  const QString from = QString::fromStdString(input.TakeText());
  const QString other = QString::fromStdString(input.TakeText());
  CheckNavigations(QUrl(from), QUrl(to));
  CheckNavigations(QUrl("http://a.example/"), QUrl::fromEncoded(QByteArray::fromStdString(text)));
  CheckAction(to);
  CheckFeedLink(to, other, from);
  CheckSkinFile(to);
  CheckHead(text);
  CheckFileName(to);
}

}  // namespace feedloom
