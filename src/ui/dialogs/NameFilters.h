#pragma once

#include <QString>
#include <QStringList>

namespace feedloom {

// Converts a list of file types into name filters for QFileDialog. `kinds` has a name and its
// patterns for each type, all ended by "|": "Text (*.txt;*.md)|*.txt;*.md|" gives
// "Text (*.txt *.md)". The pattern "*.*" becomes "*", which also matches names without a dot. A
// name without patterns is skipped. Pure.
QStringList NameFilters(const QString& kinds);

}  // namespace feedloom
