#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace feedloom {

// The beginning of what a reader of the piece of HTML `html` sees as text: without markup, scripts
// and styles, references resolved, white space as single blanks, none at both ends. `characters`
// are enough; more may come. Looks at the first 16 KiB only. In and out UTF-8. Any thread may call
// it.
std::string HtmlText(std::string_view html, std::size_t characters);

}  // namespace feedloom
