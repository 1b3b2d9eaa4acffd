// Where the browser may navigate, as pure functions of addresses; any thread. The content of a feed
// is hostile: a generated page leads to web pages only, and only when the user clicks.
#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>
#include <optional>

namespace feedloom {

// The action of a button of a preview page, on the post `number` of that page.
struct PageAction {
  enum Kind { AddFeed, SavePost };
  Kind kind = AddFeed;
  int number = 0;

  bool operator==(const PageAction&) const = default;
};

// The action that the address `target` stands for, if its part before the first "?" contains the
// name of a button; the part behind it is the post's number, read as atoi(3) does. Otherwise none.
std::optional<PageAction> ParsePageAction(const QString& target);

// The ids of the elements that hold what the action needs. SavePost: title, link, description and
// date; AddFeed: the feed's address.
QStringList ElementIds(const PageAction& action);

// What has started a navigation. Command: the module or the user (an address, back, reload). Link:
// a link of the page, which a script of a web page can follow, too. Server: a redirect of a Command
// or Link. Page: the page itself.
enum class NavigationCause { Command, Link, Server, Page };

struct Navigation {
  QUrl from;
  QUrl to;
  NavigationCause cause = NavigationCause::Page;
  bool isMainFrame = true;
  bool isFromPlayer = false;  // `from` is a generated page that plays a media file
  bool opensOutside = false;  // the user wants all but generated pages in the system's browser
};

enum class NavigationVerdict {
  Follow,
  Act,          // stay on the page and run the action of the address
  OpenOutside,  // stay on the page and hand the address to the system
  Refuse,       // stay on the page
  Report,       // stay on the page and report it, because the user has clicked
};

// A command may lead anywhere except to a button's address. When `opensOutside`, a generated page
// leads outside instead of to another page; a web page that is still on display leads nowhere. The
// verdict on a frame is Follow or Refuse.
NavigationVerdict Judge(const Navigation& navigation);

// Whether the scheme is http or https.
bool IsWebAddress(const QUrl& url);

// The address for the text `typed`, completed as browsers do ("example.com"). It may have any
// scheme; it is invalid when the text is no address.
QUrl CompleteAddress(const QString& typed);

// What of `url` other programs get: of a mailto address the recipients, the subject and the text. A
// mail program might attach a file of the user to the mail, if it were told to.
QUrl ForOtherPrograms(const QUrl& url);

// Whether the browser may open an address that the user has typed: a web page or a file.
bool IsForBrowser(const QUrl& url);

}  // namespace feedloom
