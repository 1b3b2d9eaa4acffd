// The feeds that a web page announces in its head.
#pragma once

#include <QList>
#include <QString>

namespace feedloom {

// A feed link as the page's source has it, and its address as the browser engine resolves it.
struct FeedLink {
  QString title;
  QString href;
  QString resolved;
  enum class Kind { Rss, Atom, Json } kind = Kind::Rss;
};

// The feed links of a page, and what is needed to resolve them.
struct AnnouncedFeeds {
  QString documentUrl;
  QString domain;  // without scheme and port
  QList<FeedLink> links;
};

// The absolute address of `href` in the document. A path that begins with "/" is appended to the
// domain, without the document's port. "./" and leading "../" are resolved against `documentUrl`.
// Any other text, a bare file name too, is returned unchanged.
QString ResolveFeedLink(const QString& href, const QString& domain, const QString& documentUrl);

}  // namespace feedloom
