#include "shell/DroppedContent.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>
#include <algorithm>

#include "feed/WebAddress.h"

namespace feedloom {
namespace {

using Kind = DroppedContent::Kind;

constexpr qsizetype kLongestAddress = 4096;  // characters; a longer text is none

DroppedContent ReadFile(const QString& path) {
  const QFileInfo file(QDir::cleanPath(path));
  if (file.isFile() && file.isReadable())
    return {Kind::kFile, QFile::encodeName(path).toStdString()};
  return {Kind::kNoFile, file.fileName().toStdString()};
}

// White space within a text tells that it is more than an address.
DroppedContent ReadText(const QString& text) {
  if (text.size() > kLongestAddress) return {};
  const QString typed = text.trimmed();
  const bool isOne = std::ranges::none_of(typed, [](QChar c) { return c.isSpace(); });
  const std::string address = EscapedAddress(typed.toStdString());
  if (!isOne || !IsWebAddress(address)) return {};
  return {Kind::kAddress, address};
}

}  // namespace

bool MayBeDropped(const QMimeData& data) { return data.hasUrls() || data.hasText(); }

DroppedContent ReadDrop(const QMimeData& data) {
  const QList<QUrl> urls = data.urls();
  if (urls.size() > 1) return {Kind::kSeveral};
  if (urls.isEmpty()) return ReadText(data.text());
  if (urls[0].isLocalFile()) return ReadFile(urls[0].toLocalFile());
  return ReadText(QString::fromUtf8(urls[0].toEncoded()));
}

DroppedContent ReadHandedOver(const std::string& content) {
  if (content.starts_with('/')) return ReadFile(QFile::decodeName(content.c_str()));
  return ReadText(QString::fromStdString(content));
}

}  // namespace feedloom
