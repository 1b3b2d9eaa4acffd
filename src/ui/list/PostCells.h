// The columns of the post list, and the texts of their cells and headings. Pure functions; any
// thread.
#pragma once

#include <QString>
#include <QStringList>
#include <string_view>

#include "text/CodePage.h"

namespace feedloom {

enum PostColumn { kReadColumn, kTitleColumn, kDateColumn, kOwnerColumn, kPostColumnCount };

// Splits `label`, which is in `codePage`, into headings at each "|". Only the whole characters in
// its first 511 bytes are used.
QStringList SplitHeadings(CodePage codePage, std::string_view label);

// The day of a stored date as "2008-05-01"; empty when `stored` is empty or no date from 1970 on.
QString DateCell(std::string_view stored);
// The day and the time, as "2008-05-01 10:00"; empty where DateCell is.
QString DayAndTime(std::string_view stored);

}  // namespace feedloom
