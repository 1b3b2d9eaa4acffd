// What a post begins with, or where a search has met it, for a line of its row. Any thread.
#pragma once

#include <QString>
#include <string_view>

#include "search/TextQuery.h"
#include "text/CodePage.h"

namespace feedloom {

// The first words of the HTML text `html`, which is in `codePage`: on one line and without mark-up,
// some 200 characters at most. What stands behind the first 4,000 bytes is not looked at.
QString FirstWords(CodePage codePage, std::string_view html);

// Such words around the first ones that `query` looks for; the first words of all if there are
// none. What stands behind the first 64,000 bytes is not looked at.
QString WordsAroundFound(CodePage codePage, std::string_view html, const TextQuery& query);

}  // namespace feedloom
