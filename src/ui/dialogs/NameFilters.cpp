#include "ui/dialogs/NameFilters.h"

#include <algorithm>

namespace feedloom {
namespace {

QString NameFilter(QString name, const QString& patterns) {
  name.remove('(' + patterns + ')');  // QFileDialog shows the patterns itself
  QStringList all = patterns.split(';', Qt::SkipEmptyParts);
  std::ranges::replace(all, QString("*.*"), QString("*"));
  return name.trimmed() + " (" + all.join(' ') + ')';
}

}  // namespace

QStringList NameFilters(const QString& kinds) {
  const QStringList fields = kinds.split('|');
  QStringList filters;
  for (qsizetype i = 1; i < fields.size(); i += 2) {
    if (!fields[i].isEmpty()) filters << NameFilter(fields[i - 1], fields[i]);
  }
  return filters;
}

}  // namespace feedloom
