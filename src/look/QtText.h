// Converts the module's 8-bit texts to QString and back. Any thread.
#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "text/CodePage.h"

namespace feedloom {

// Decodes `text` from `codePage`.
QString ToQString(CodePage codePage, std::string_view text);
// Decodes `text` for display on one line: each run of white space and control characters becomes
// one blank, those at the ends are removed. A text of more than 500 characters is cut there, with
// an ellipsis at its end; the rest is not decoded.
QString ToLine(CodePage codePage, std::string_view text);

// Encodes `text` in `codePage`. Characters that the code page lacks become "?".
std::string FromQString(CodePage codePage, const QString& text);

}  // namespace feedloom
