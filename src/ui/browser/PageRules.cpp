#include "ui/browser/PageRules.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <QRegularExpression>
#include <QUrlQuery>
#include <cctype>

namespace feedloom {
namespace {

constexpr char kPageHost[] = "page";

// By its query a page's own address is known from that of a relative link.
bool HasPageQuery(const QUrl& url) { return QUrlQuery(url).hasQueryItem(kPageQuery); }

// The first part of a page's path, with its number.
QRegularExpressionMatch MatchNumber(const QUrl& url) {
  static const QRegularExpression number("^/page:(\\d{1,9})(?=/|$)");
  return number.match(url.path(QUrl::FullyEncoded));
}

// The common part of all policies; the images and media of the kind follow. An element may have a
// style, but a sheet in a post would style the whole page.
constexpr char kPolicy[] =
    "default-src 'none'; base-uri 'none'; form-action 'none'; "
    "style-src-attr 'unsafe-inline'; style-src-elem feedloom:";
constexpr char kAnyImages[] = "img-src feedloom: http: https: data:";
constexpr char kOwnImages[] = "img-src feedloom: data:";
// The player embeds its media file as an object, which the engine loads in a frame.
constexpr char kMedia[] =
    "img-src feedloom:; media-src http: https:; object-src http: https:; frame-src http: https:";

// As a text of a style sheet. Letters and digits of ASCII mean themselves.
QByteArray Quoted(const QString& text) {
  QByteArray quoted = "\"";
  for (const char32_t c : text.toUcs4()) {
    const bool isPlain = c < 0x80 && std::isalnum(static_cast<int>(c)) != 0;
    quoted +=
        isPlain ? QByteArray(1, static_cast<char>(c)) : '\\' + QByteArray::number(c, 16) + ' ';
  }
  return quoted + '"';
}

// What the style sheet refers to, as a sheet of its own.
QByteArray Properties(const PageStyle& style) {
  const QString separator = style.source.isEmpty() ? QString() : QStringLiteral(" \u00B7 ");
  return ":root{--interface:" + Quoted(style.font) + ";--separator:" + Quoted(separator) +
         ";--source:" + Quoted(style.source) + "}";
}

QByteArray Hash(const QByteArray& sheet) {
  return QCryptographicHash::hash(sheet, QCryptographicHash::Sha256).toBase64();
}

}  // namespace

QUrl GeneratedPageUrl(int number) {
  return QUrl(QStringLiteral("%1://%2/page:%3/?%4")
                  .arg(kPageScheme, kPageHost, QString::number(number), kPageQuery));
}

QUrl SkinFileUrl(const QString& path) {
  QUrl url;
  url.setScheme(kPageScheme);
  url.setHost(kPageHost);
  url.setPath(path);
  return url;
}

QUrl AtHost(QUrl url, int host) {
  const QString name(kPageHost);
  url.setHost(host == 0 ? name : name + QString::number(host));
  return url;
}

bool IsGenerated(const QUrl& url) { return url.scheme() == kPageScheme; }

bool IsPageHost(const QUrl& url) {
  static const QRegularExpression host(QStringLiteral("^%1\\d*$").arg(kPageHost));
  return host.match(url.host()).hasMatch();
}

std::optional<int> PageNumber(const QUrl& url) {
  return HasPageQuery(url) ? NumberInPath(url) : std::nullopt;
}

std::optional<int> NumberInPath(const QUrl& url) {
  const auto number = MatchNumber(url);
  if (!IsGenerated(url) || !IsPageHost(url) || !number.hasMatch()) return {};
  return number.captured(1).toInt();
}

QUrl WithoutPage(QUrl url) {
  if (HasPageQuery(url)) url.setQuery(QString());
  if (NumberInPath(url)) {
    url.setPath(url.path(QUrl::FullyEncoded).mid(MatchNumber(url).capturedLength()));
  }
  return url;
}

QString SkinFile(const QUrl& url, const QString& skinDir) {
  const QString dir = QFileInfo(skinDir).canonicalFilePath();
  const QFileInfo file(url.path(QUrl::FullyDecoded));
  const QString path = file.canonicalFilePath();
  const bool inside = !dir.isEmpty() && path.startsWith(dir + '/');
  return inside && QFileInfo(path).isFile() ? path : QString();
}

QByteArray WithHead(const QByteArray& html, PageKind kind, bool showsRemoteImages,
                    const PageStyle& style) {
  const QByteArray head = "<head>";
  const qsizetype begin = html.indexOf(head);
  const qsizetype at = begin < 0 ? 0 : begin + head.size();
  const char* const images = showsRemoteImages ? kAnyImages : kOwnImages;
  const bool isStyled = kind != PageKind::Player && !style.sheet.isEmpty();
  const QByteArray properties = Properties(style);
  const QByteArray policy = kPolicy + (isStyled ? " 'sha256-" + Hash(properties) + "'; " : "; ") +
                            (kind == PageKind::Player ? kMedia : images);
  QByteArray added = "<meta http-equiv=\"Content-Security-Policy\" content=\"" + policy + "\">";
  if (isStyled) {
    const QByteArray path = SkinFileUrl(style.sheet).path(QUrl::FullyEncoded).toUtf8();
    added += "<style>" + properties + "</style><link rel=\"stylesheet\" href=\"" + path + "\">";
  }
  return QByteArray(html).insert(at, added);
}

}  // namespace feedloom
