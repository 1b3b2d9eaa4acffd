// From the module's 8-bit texts to the toolkit's strings, and back.
#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "platform/CodePage.h"

namespace feedloom {

QString ToQString(CodePage codePage, std::string_view text);
// `text` on one line: white space and control characters become single blanks. A feed may send a
// text of any length; what is longer than any row shows is cut, marked by an ellipsis, without a
// look at the rest.
QString ToLine(CodePage codePage, std::string_view text);

// What the code page lacks becomes "?".
std::string FromQString(CodePage codePage, const QString& text);

}  // namespace feedloom
