#pragma once

#include <QString>

#include "search/TextQuery.h"

namespace feedloom {

class WebPage;

// Marks the words of `query` in the generated page on display, 1,000 at most: they become elements
// named "feedloom-found", which the style sheet colours; text and links stay. When the first one is
// below the part in sight, the page is scrolled to it, unless `keepsPlace`. Call it once for a
// page, when its document is complete. Interface thread.
void MarkWords(WebPage& page, const TextQuery& query, bool keepsPlace);

}  // namespace feedloom
