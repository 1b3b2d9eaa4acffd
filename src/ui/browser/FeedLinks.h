// The feeds that a web page announces in its head.
#pragma once

#include <QList>
#include <QString>

namespace feedloom {

// As the page writes it.
struct FeedLink {
  QString title;
  QString href;
};

// What a page tells of itself, for the addresses of its feeds.
struct AnnouncedFeeds {
  QString documentUrl;
  QString domain;  // without scheme and port
  QList<FeedLink> links;
};

// The address that `href` means in the document. A path from the root is put behind the domain, so
// it loses the document's port; "./" and leading "../" count from the document's address; any other
// text, a bare file name too, stays as it is written.
QString ResolveFeedLink(const QString& href, const QString& domain, const QString& documentUrl);

}  // namespace feedloom
