#include "ui/browser/PostAddresses.h"

#include "ui/browser/NavigationRules.h"
#include "ui/browser/PageRules.h"

namespace feedloom {
namespace {

constexpr qsizetype kLongest = 8000;  // characters of an address that servers still accept

QString Origin(const QUrl& url) {
  return url.toString(QUrl::FullyEncoded | QUrl::RemoveUserInfo | QUrl::RemovePath |
                      QUrl::RemoveQuery | QUrl::RemoveFragment);
}

}  // namespace

QUrl PageUrlFor(int number, const QUrl& source) {
  const QUrl root = GeneratedPageUrl(number);
  if (!IsWebAddress(source)) return root;
  QUrl url = root;
  const QUrl normal = source.adjusted(QUrl::NormalizePathSegments);
  url.setPath(root.path() + normal.path(QUrl::FullyEncoded).mid(1));
  url.setQuery(QStringLiteral("%1=%2").arg(kPageQuery, Origin(source)));
  // The path of a hostile source may contain the name of a button, or be too long for the engine.
  const QString address = url.toString(QUrl::FullyEncoded);
  return ParsePageAction(address) || address.size() > kLongest ? root : url;
}

QUrl AddressInSource(const QUrl& resolved, const QUrl& source) {
  if (!IsGenerated(resolved) || !IsWebAddress(source)) return resolved;
  QUrl meant = WithoutPage(resolved);
  meant.setScheme(source.scheme());
  if (!IsPageHost(resolved)) return meant;
  meant.setHost(source.host());
  meant.setPort(source.port());
  return meant;
}

}  // namespace feedloom
