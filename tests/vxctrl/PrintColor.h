#pragma once

#include <QColor>
#include <ostream>

// QColor in a failed test's report.
inline void PrintTo(const QColor& color, std::ostream* out) { *out << color.name().toStdString(); }
