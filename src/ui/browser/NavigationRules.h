// Where the browser may go, as pure functions of addresses. What a feed sends is hostile: a page
// that the module made of it leads to web pages only, and only when the user clicks.
#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>
#include <optional>

namespace feedloom {

// What the buttons of a preview page do, for the page's post `number`.
struct PageAction {
  enum Kind { AddFeed, SavePost };
  Kind kind = AddFeed;
  int number = 0;

  bool operator==(const PageAction&) const = default;
};

// The action that an address stands for: the part before the first "?" contains the button's name,
// what follows is the post's number by the rules of atoi(3). None for any other address.
std::optional<PageAction> ParsePageAction(const QString& target);

// The ids of the elements that hold what the action needs. SavePost: title, link, description and
// date; AddFeed: the feed's address.
QStringList ElementIds(const PageAction& action);

// What began a navigation: the module or the user's own commands (an address, back, reload), a link
// of the page, the server that one of these has asked, or the page by itself. A web page's script
// can follow a link, too.
enum class NavigationCause { Command, Link, Server, Page };

struct Navigation {
  QUrl from;
  QUrl to;
  NavigationCause cause = NavigationCause::Page;
  bool isMainFrame = true;
  bool isFromPlayer = false;  // `from` is a generated page that plays a media file
};

enum class NavigationVerdict {
  Follow,
  Act,          // the address is that of an action: do it, and stay
  OpenOutside,  // stay, and hand the address to the system
  Refuse,
  Report,  // refuse, and say so: the user has clicked
};

// A command is followed wherever it leads, but for a button's address. A frame is never more than
// followed or refused.
NavigationVerdict Judge(const Navigation& navigation);

// http and https.
bool IsWebAddress(const QUrl& url);

// The address that a user means by `typed`, completed as browsers do ("example.com"). It may have
// any scheme, and is not valid when nothing can be made of the text.
QUrl CompleteAddress(const QString& typed);

// Whether the user may go to an address that they have typed: a web page or a file.
bool IsForBrowser(const QUrl& url);

}  // namespace feedloom
