// The two ways in which the host's texts are filled in. Pure; texts are in the module's code page.
#pragma once

#include <string>
#include <string_view>

namespace feedloom {

// Every "$" becomes a line break, carriage return and line feed.
std::string WithLineBreaks(std::string_view text);

// The first "%s" becomes `title`.
std::string WithTitle(std::string_view text, std::string_view title);

}  // namespace feedloom
