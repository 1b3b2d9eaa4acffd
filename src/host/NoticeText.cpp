#include "host/NoticeText.h"

#include <QStringList>

#include "host/HostTables.h"
#include "skin/Keys.h"

namespace feedloom {
namespace {

constexpr qsizetype kMostLines = 6;
constexpr qsizetype kMostSigns = 120;

// A line is a channel, the number of its new posts and the title of the newest one.
QString LineOf(const QString& line) {
  const QString channel = line.section('\t', 0, 0), newest = line.section('\t', 2).simplified();
  const int posts = line.section('\t', 1, 1).toInt();
  QString text = channel.simplified();
  if (posts > 1) text += QString(" (%1)").arg(posts);
  if (!newest.isEmpty()) text += ": " + newest;
  return text.size() > kMostSigns ? text.left(kMostSigns - 1) + u'…' : text;
}

}  // namespace

QString NoticeSummary(int posts) {
  return HostText(posts == 1 ? kHostTextNewPost : kHostTextNewPosts).arg(posts);
}

QString NoticeBody(const QString& lines, bool hasMarkup) {
  QStringList body;
  const QStringList channels = lines.split('\n', Qt::SkipEmptyParts);
  for (const QString& channel : channels.mid(0, kMostLines)) {
    const QString text = LineOf(channel);
    body << (hasMarkup ? text.toHtmlEscaped() : text);
  }
  if (channels.size() > kMostLines) body << "…";
  return body.join('\n');
}

}  // namespace feedloom
