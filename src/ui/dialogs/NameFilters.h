#pragma once

#include <QString>
#include <QStringList>

namespace feedloom {

// The kinds of files to choose from, as the toolkit's file dialog takes them. `kinds` holds a name
// and its patterns for each, every one with a "|" behind it: "Text (*.txt;*.md)|*.txt;*.md|" gives
// "Text (*.txt *.md)". The pattern "*.*" stands for all files and becomes "*": the other would miss
// those without a dot. A name without patterns is left out. Pure.
QStringList NameFilters(const QString& kinds);

}  // namespace feedloom
