// The columns of the post list, and what their cells and headings say. Pure functions; any thread.
#pragma once

#include <QString>
#include <QStringList>
#include <string_view>

#include "platform/CodePage.h"

namespace feedloom {

enum PostColumn { kReadColumn, kTitleColumn, kDateColumn, kOwnerColumn, kPostColumnCount };

// The headings in a label that has "|" between them; only its first 511 bytes count, and of these
// whole characters.
QStringList HeadingsIn(CodePage codePage, std::string_view label);

// The day of a stored date, "2008-05-01"; empty for an empty or unreadable one.
QString DateCell(std::string_view stored);

}  // namespace feedloom
