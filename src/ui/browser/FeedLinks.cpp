#include "ui/browser/FeedLinks.h"

#include <algorithm>

namespace feedloom {
namespace {

const QString kSchemeEnd = QStringLiteral("://");

// `address` up to its last "/", without it.
QString Above(const QString& address) {
  return address.left(std::max<qsizetype>(address.lastIndexOf('/'), 0));
}

QString Root(const QString& domain, const QString& documentUrl) {
  if (domain.contains(kSchemeEnd)) return domain;
  const qsizetype schemeEnd = documentUrl.indexOf(kSchemeEnd);
  const QString scheme = schemeEnd < 0 ? QStringLiteral("http") : documentUrl.left(schemeEnd);
  return scheme + kSchemeEnd + domain;
}

QString Climb(const QString& href, const QString& documentUrl) {
  const QString up = QStringLiteral("../");
  QString base = Above(documentUrl);
  qsizetype at = 0;
  for (; href.mid(at).startsWith(up); at += up.size()) base = Above(base);
  return base + href.mid(at - 1);
}

}  // namespace

QString ResolveFeedLink(const QString& href, const QString& domain, const QString& documentUrl) {
  if (href.startsWith('/')) return Root(domain, documentUrl) + href;
  if (href.startsWith(QLatin1String("./"))) return Above(documentUrl) + href.mid(1);
  if (href.startsWith(QLatin1String("../"))) return Climb(href, documentUrl);
  return href;
}

}  // namespace feedloom
