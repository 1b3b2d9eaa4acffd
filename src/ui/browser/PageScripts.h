// The scripts with which the module reads the page on display. They run in a script world that the
// page cannot access. An element of the page can have the name of a member of the document and hide
// that member; so the scripts call the members of Document.prototype.
#pragma once

#include <QList>
#include <QPointF>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <QVariant>

#include "ui/browser/FeedLinks.h"

namespace feedloom {

// Evaluates to a list with one text for each id: the title attribute of the last "div" element with
// that id (compared without case), or its visible text when the title is empty; empty without such
// an element.
QString GetElementValuesScript(const QStringList& ids);

// Evaluates to the argument of ReadFeeds: the first 200 links of the types "application/rss+xml"
// and "application/atom+xml".
QString FindFeedsScript();
AnnouncedFeeds ReadFeeds(const QVariant& result);

// Evaluates to whether the user has clicked, or pressed a key that clicks, within the last two
// seconds; clicks by scripts do not count. Needs WatchPageScript.
QString IsUserActiveScript();

// Evaluates to whether the focused link, which is the one clicked last, contains an image.
QString IsImageLinkScript();

// Runs when a page is ready, and remembers the user's clicks. In a generated page it writes to the
// console: `readyMark` and the page's address; `noRefreshMark` and the page's address when the page
// has no meta refresh; `refusedMark` and the link's address when the user clicks a link of a scheme
// other than http, https, mailto and feedloom, which it prevents, because the engine would refuse
// it without a signal.
QString WatchPageScript(const QString& readyMark, const QString& noRefreshMark,
                        const QString& refusedMark);

// Runs when a page is ready: a picture of a generated page that the module does not have is asked
// for at the page's source, against which its address is resolved.
QString FindPicturesScript();

// Runs when a page is ready: writes `mark` and a JSON list of the addresses of its frames to the
// console of a generated page that has any.
QString FindFramesScript(const QString& mark);

// A line with a link to `page`, in place of the frame at the address `frame`.
struct FrameLine {
  QString frame;
  QUrl page;
  QString text;
};

// Replaces these frames of the page.
QString ReplaceFramesScript(const QList<FrameLine>& lines);

// Writes `mark` to the page's console when the page has been drawn.
QString TellWhenDrawnScript(const QString& mark);

// Scrolls the page to this place, in its own pixels.
QString ScrollScript(const QPointF& place);

// Scrolls the page by nine tenths of its height, or back, and evaluates to whether it has moved. A
// focused control is clicked instead, which counts as moved.
QString ScrollScreenScript(bool isOn);

// Removes all frames and media elements of the page.
QString RemoveFramesScript();

}  // namespace feedloom
