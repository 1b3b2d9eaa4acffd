#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace feedloom {

// The beginning of what a reader of the piece of HTML `html` sees as text: without markup, scripts
// and styles, references resolved, white space as single blanks, none at both ends. `characters`
// are enough; more may come. In and out UTF-8. Takes a time that grows with the size of `html`
// alone. Pure; any thread.
std::string HtmlText(std::string_view html, std::size_t characters);

}  // namespace feedloom
