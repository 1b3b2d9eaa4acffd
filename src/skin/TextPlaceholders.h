// Fills the placeholders of the host's texts. All texts are in the module's code page. Any thread.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace feedloom {

// Replaces each "$" with a line break (CR LF).
std::string WithLineBreaks(std::string_view text);

// Replaces the first "%s" with `title`.
std::string WithTitle(std::string_view text, std::string_view title);

// Replaces each "%d" with the next of `numbers`. Further placeholders, or numbers, are left over.
std::string WithNumbers(std::string_view text, std::initializer_list<int> numbers);

}  // namespace feedloom
