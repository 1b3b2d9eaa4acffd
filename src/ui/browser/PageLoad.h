// The load of the browser's page as a value, and what changes it, as pure functions; any thread.
#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>

#include "ui/browser/NavigationRules.h"

namespace feedloom {

enum class LoadPhase {
  Requested,  // no answer has come: the page before is still on display
  Arrived,    // the page is on display and not yet complete
  Ended,      // the page is complete, or the load has failed or was stopped
  Drawn,      // and what is on display since has been drawn
};

// The latest load of the main frame, and what the user has done since it was requested.
struct PageLoad {
  int number = 0;  // counts the loads
  LoadPhase phase = LoadPhase::Drawn;
  NavigationCause cause = NavigationCause::Page;
  QUrl target;
  QUrl abandoned = {};  // the target of the load that this one has replaced before it ended
  // The address that the user gave, by typing, by a button or by a click, after all redirects of
  // servers so far. Empty when the page itself has chosen its target, and once the page has come
  // or a question about it was asked.
  QUrl given = {};
  QStringList loginHosts = {};  // those for which this load has asked for a password
  bool hasGesture = false;  // the user has clicked or typed in the page, and it has not asked yet
  bool isOrdered = false;   // the user has ordered Back, Forward or Reload, which has not begun
  bool isRefusalTold = false;  // a refused download was told since the user's last deed
  bool reportsStatus = false;  // the host hears of the load, and of links under the pointer
  QUrl noRefreshPage = {};     // the latest generated page that has reported no meta refresh

  bool operator==(const PageLoad&) const = default;
};

// Whether a navigation that was accepted has not ended.
bool IsUnderWay(const PageLoad& load);

// Whether `navigation`, which was accepted, ends a load that is under way.
bool IsAbandonedBy(const PageLoad& load, const Navigation& navigation);

// Whether the end of a load of `address` is that of this load, and not of the one that it has
// replaced: the engine may report that one's end later.
bool IsEndOf(const PageLoad& load, const QUrl& address);

// Each returns the value after the event.

// A navigation of the main frame was accepted. `isUsers`: it is certain that the user has ordered
// it. Scripts of a page order Back, Forward and Reload, too; they follow links, but not before the
// user has touched their page.
PageLoad Begun(const PageLoad& load, const Navigation& navigation, bool isUsers);
// A navigation of a frame was accepted.
PageLoad FrameBegun(PageLoad load, const QUrl& target);
// The page on display has got the address `address`.
PageLoad Arrived(PageLoad load, const QUrl& address);
// `isComplete`: the page is complete, when it has come. Otherwise the load has failed, was stopped,
// or becomes a download, which may come later; or it was the end of the load before.
PageLoad Ended(PageLoad load, bool isComplete);
PageLoad Drawn(PageLoad load);
// The user has clicked or typed in the page.
PageLoad Touched(PageLoad load);
PageLoad Ordered(PageLoad load);

// Whether a redirect from the page on display, `from`, is one that a server has ordered: only
// while a navigation of the user to a web page is pending. Without one the page itself redirects;
// and a generated page with a meta refresh might do so during that navigation, which the engine
// reports in the same way.
bool IsServersRedirect(const PageLoad& load, const QUrl& from, const QUrl& to);

}  // namespace feedloom
