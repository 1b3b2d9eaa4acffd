#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace feedloom {

// What a character is to the search.
enum class CharacterKind {
  kGap,     // blanks, punctuation, symbols; an apostrophe, so that "Ann's" and "l'Ann" hold "Ann"
  kLetter,  // a letter or digit of a script that sets its words apart
  kPart,  // a character of a script whose words are searched by parts: Hangul, Han, Kana, Thai ...
  kNothing  // a soft hyphen or an invisible character: stands in no one's way
};

// A character as a reader sees it: with the marks that combine with it.
struct Character {
  std::size_t size = 0;  // in bytes of the text
  CharacterKind kind = CharacterKind::kGap;
  // The same for all that the search takes as equal: letters in either case, with and without
  // accents, in full and half width, composed and not. Empty for kGap and kNothing.
  std::string folded = {};
};

// The first character of `text`, UTF-8 that is not empty. Bytes that are not UTF-8 are gaps. Pure;
// any thread. The folding is Unicode's NFKC_Casefold, then without combining diacritical marks.
Character FirstCharacter(std::string_view text);

}  // namespace feedloom
