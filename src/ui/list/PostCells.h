// What the cells of the post list say. Pure functions; any thread.
#pragma once

#include <QString>
#include <string_view>

#include "platform/CodePage.h"

namespace feedloom {

// `title`, a text of `codePage`, on one line: white space and control characters become single
// blanks. A feed may send a title of any length; what is longer than a list shows is cut, marked by
// an ellipsis, without a look at the rest.
QString TitleCell(CodePage codePage, std::string_view title);

// The day of a stored date, "2008-05-01"; empty for an empty or unreadable one.
QString DateCell(std::string_view stored);

}  // namespace feedloom
