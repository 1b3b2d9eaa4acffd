// The ways in which the host's texts are filled in. Pure; texts are in the module's code page.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace feedloom {

// Every "$" becomes a line break, carriage return and line feed.
std::string WithLineBreaks(std::string_view text);

// The first "%s" becomes `title`.
std::string WithTitle(std::string_view text, std::string_view title);

// Each "%d" becomes the next of `numbers`, as long as there are some.
std::string WithNumbers(std::string_view text, std::initializer_list<int> numbers);

}  // namespace feedloom
