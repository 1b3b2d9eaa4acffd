#include "ui/browser/DownloadFiles.h"

#include <fcntl.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <QUuid>
#include <algorithm>
#include <cstdio>

namespace feedloom {
namespace {

constexpr qsizetype kLongestName = 200;   // bytes; file systems allow 255
constexpr qsizetype kLongestEnding = 20;  // bytes, with the dot

// Bidi controls could disguise the file extension.
bool IsInvisibleInName(QChar c) {
  switch (c.category()) {
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
      return true;
    default:
      break;
  }
  const QChar::Direction direction = c.direction();
  return (direction >= QChar::DirLRE && direction <= QChar::DirPDF) ||
         (direction >= QChar::DirLRI && direction <= QChar::DirPDI) || c == QChar(0x200E) ||
         c == QChar(0x200F);
}

QString LastPart(QString path) {
  path.replace('\\', '/');
  return path.section('/', -1, -1, QString::SectionSkipEmpty);
}

// The longest beginning of `text` of at most `size` UTF-8 bytes, in whole characters.
QString Shortened(QString text, qsizetype size) {
  while (text.toUtf8().size() > size) text.chop(text.back().isLowSurrogate() ? 2 : 1);
  return text;
}

QString Ending(const QString& name) {
  const qsizetype dot = name.lastIndexOf('.');
  const QString ending = dot > 0 ? name.mid(dot) : QString();
  return ending.toUtf8().size() <= kLongestEnding ? ending : QString();
}

QString ShortenedName(const QString& name, qsizetype size) {
  const QString ending = Ending(name);
  return Shortened(name.chopped(ending.size()), size - ending.toUtf8().size()) + ending;
}

bool ReachesDisk(const QString& path) {
  const int handle = open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
  if (handle < 0) return false;
  const bool isSynced = fsync(handle) == 0;
  close(handle);
  return isSynced;
}

}  // namespace

QString SafeFileName(const QString& suggested) {
  QString name = suggested;
  name.removeIf(IsInvisibleInName);
  name = LastPart(name);
  const auto isDotOrSpace = [](QChar c) { return c == '.' || c.isSpace(); };
  name.remove(0, std::ranges::find_if_not(name, isDotOrSpace) - name.begin());
  while (!name.isEmpty() && isDotOrSpace(name.back())) name.chop(1);
  return name.isEmpty() ? QStringLiteral("download") : ShortenedName(name, kLongestName);
}

QString PartPath(const QString& target) {
  const QFileInfo place(target);
  return QStringLiteral("%1/.%2.%3.part")
      .arg(place.absolutePath(), Shortened(place.fileName(), kLongestName - 20),
           QUuid::createUuid().toString(QUuid::Id128));
}

bool CanWriteFile(const QString& target) {
  const QFileInfo place(target);
  const QFileInfo folder(place.absolutePath());
  return !place.fileName().isEmpty() && !place.isDir() && folder.isDir() && folder.isWritable();
}

bool MovePartIntoPlace(const QString& part, const QString& target) {
  return ReachesDisk(part) && std::rename(QFile::encodeName(part).constData(),
                                          QFile::encodeName(target).constData()) == 0;
}

void RemovePart(const QString& part) {
  QFile::remove(part);
  QFile::remove(part + QStringLiteral(".download"));
}

}  // namespace feedloom
