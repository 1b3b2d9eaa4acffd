// How results leave the program. Everything printed is UTF-8.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

namespace feedloom {

using Json = nlohmann::ordered_json;

// One value, indented, and a line feed, to stdout.
void PrintJson(const Json& value);

// One line to stdout.
void PrintLine(std::string_view utf8);

// Whether all that was printed to stdout so far has arrived there.
bool AllPrinted();

// "feedloomctl: " and the text, to stderr.
void PrintError(std::string_view utf8);

// What became of a channel's refresh (a ChannelResult), in words.
std::string_view ResultWords(int result);

// `utf8` for one line on a terminal: control characters, which feeds may hold, become blanks.
std::string OneLine(std::string_view utf8);

}  // namespace feedloom
