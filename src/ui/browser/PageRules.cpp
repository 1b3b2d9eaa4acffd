#include "ui/browser/PageRules.h"

#include <QFileInfo>

namespace feedloom {
namespace {

constexpr char kPageHost[] = "page";
constexpr char kPreviewPolicy[] =
    "default-src 'none'; img-src feedloom: http: https: data:; style-src 'unsafe-inline' "
    "feedloom:; "
    "base-uri 'none'; form-action 'none'";
// The player embeds its media file as an object.
constexpr char kPlayerPolicy[] =
    "default-src 'none'; img-src feedloom:; style-src 'unsafe-inline'; media-src http: https:; "
    "object-src http: https:; base-uri 'none'; form-action 'none'";

}  // namespace

QUrl GeneratedPageUrl(int number) {
  return QUrl(QStringLiteral("%1://%2/%3").arg(kPageScheme, kPageHost).arg(number));
}

QUrl SkinFileUrl(const QString& path) {
  QUrl url;
  url.setScheme(kPageScheme);
  url.setHost(kPageHost);
  url.setPath(path);
  return url;
}

bool IsGenerated(const QUrl& url) { return url.scheme() == kPageScheme; }

std::optional<int> PageNumber(const QUrl& url) {
  bool isNumber = false;
  const int number = url.path().mid(1).toInt(&isNumber);
  if (!IsGenerated(url) || !isNumber) return {};
  return number;
}

QString SkinFile(const QUrl& url, const QString& skinDir) {
  const QString dir = QFileInfo(skinDir).canonicalFilePath();
  const QFileInfo file(url.path(QUrl::FullyDecoded));
  const QString path = file.canonicalFilePath();
  const bool inside = !dir.isEmpty() && path.startsWith(dir + '/');
  return inside && QFileInfo(path).isFile() ? path : QString();
}

QByteArray WithContentPolicy(const QByteArray& html, PageKind kind) {
  const QByteArray head = "<head>";
  const qsizetype at = html.indexOf(head);
  if (at < 0) return html;
  const QByteArray policy = kind == PageKind::Player ? kPlayerPolicy : kPreviewPolicy;
  return QByteArray(html).insert(
      at + head.size(), "<meta http-equiv=\"Content-Security-Policy\" content=\"" + policy + "\">");
}

bool MayNavigate(const QUrl& from, const QUrl& to, NavigationCause cause, bool isMainFrame) {
  if (!isMainFrame) return !IsGenerated(from) && !IsGenerated(to);
  if (cause == NavigationCause::Command) return true;
  if (IsGenerated(from)) return cause == NavigationCause::Link && IsWebAddress(to);
  return !IsGenerated(to);
}

bool IsWebAddress(const QUrl& url) {
  return url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
}

}  // namespace feedloom
