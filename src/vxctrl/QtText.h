// From the module's 8-bit texts to the toolkit's strings, and back.
#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "platform/CodePage.h"

namespace feedloom {

QString ToQString(CodePage codePage, std::string_view text);
// What the code page lacks becomes "?".
std::string FromQString(CodePage codePage, const QString& text);

}  // namespace feedloom
