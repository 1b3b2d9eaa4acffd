// What a post begins with, for a line of its row. Any thread.
#pragma once

#include <QString>
#include <string_view>

#include "text/CodePage.h"

namespace feedloom {

// The first words of the HTML text `html`, which is in `codePage`: on one line and without mark-up,
// some 200 characters at most. What stands behind the first 4,000 bytes is not looked at.
QString FirstWords(CodePage codePage, std::string_view html);

}  // namespace feedloom
