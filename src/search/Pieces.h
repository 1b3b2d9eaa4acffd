#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace feedloom {

// What the search compares: a word, or one character of a script whose words are searched by parts.
struct Piece {
  std::string folded;     // as Character::folded
  std::size_t begin = 0;  // in bytes of the text
  std::size_t end = 0;
  bool isPart = false;         // one character of several that make a word
  bool joinsPrevious = false;  // nothing stands between it and the piece before it
};

// The pieces of `text`, UTF-8, in their order. Pure; any thread.
std::vector<Piece> PiecesOf(std::string_view text);

}  // namespace feedloom
