// What the module asks the page on display, as scripts for a world of its own that the page cannot
// enter. A page may name its elements like the document's members, so that reading these would find
// the elements: what the scripts need of the document comes from its class.
#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>

#include "ui/browser/FeedLinks.h"

namespace feedloom {

// A list of texts, one for each id: of the last "div" element with that id, in any case, the title
// attribute or, when that is empty, the text that it shows; empty without such an element.
QString GetElementValuesScript(const QStringList& ids);

// What ReadFeeds reads: the links of the type "application/rss+xml", at most 200 of them.
QString FindFeedsScript();
AnnouncedFeeds ReadFeeds(const QVariant& result);

// True for two seconds after a click, or the key that stands for one, of the user's own; what a
// script of the page clicks does not count. Needs WatchPageScript.
QString IsUserActiveScript();

// True when the link that has the keyboard, since it was clicked last, is an image.
QString IsImageLinkScript();

// Remembers the user's clicks. Of a generated page, tells in the page's console, with `calmMark`
// and the page's address, when the page does not mean to lead elsewhere by itself after a while;
// and with `refusedMark` and the link's address, of a click on a link that leads neither to a web
// page nor to a mail program nor to the module, which the engine is kept from following in silence.
QString WatchPageScript(const QString& calmMark, const QString& refusedMark);

// Writes `mark` to the page's console when what it shows has been drawn.
QString TellWhenDrawnScript(const QString& mark);

// Ends what frames and media files the page has.
QString RemoveFramesScript();

}  // namespace feedloom
