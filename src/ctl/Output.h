// The program's output. All texts are UTF-8.
#pragma once

#include <fmt/core.h>

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

namespace feedloom {

using Json = nlohmann::ordered_json;

// Prints `value`, indented, and a line feed to stdout.
void PrintJson(const Json& value);

// Prints one line to stdout.
void PrintLine(std::string_view utf8);

// Flushes stdout and returns whether everything printed so far was written.
bool AllPrinted();

// Prints one line to stderr: "feedloomctl: " and the text.
void PrintError(std::string_view utf8);

// Returns the words for `result`, a ChannelResult.
std::string_view ResultWords(int result);

// Returns "1 post", "2 posts", "0 posts" for the noun "post".
template <typename Count>
std::string Counted(Count count, std::string_view noun) {
  return fmt::format("{} {}{}", count, noun, count == 1 ? "" : "s");
}

// Returns `utf8` with a blank for each control character, so that a feed's text cannot control the
// terminal.
std::string OneLine(std::string_view utf8);

}  // namespace feedloom
