// Compares the store's like() with an exhaustive, slow matcher, for any pattern and text.
#include <vector>

#include "fuzz/FuzzKit.h"
#include "store/Like.h"
#include "text/Text.h"

namespace feedloom {
namespace {

using Characters = std::vector<std::string_view>;

Characters Split(std::string_view text, CodePage codePage) {
  Characters characters;
  while (!text.empty()) {
    const std::size_t length = codePage.CharLength(text);
    Require(length >= 1 && length <= text.size(), "a character lies within its text");
    characters.push_back(text.substr(0, length));
    text.remove_prefix(length);
  }
  return characters;
}

bool Takes(std::string_view wanted, std::string_view present) {
  if (wanted == "_" || wanted == present) return true;
  return wanted.size() == 1 && present.size() == 1 && EqualsIgnoringAsciiCase(wanted, present);
}

bool MatchesPlainly(const Characters& pattern, const Characters& text) {
  // matches[n] is true when the pattern so far matches the first n characters.
  std::vector<bool> matches(text.size() + 1);
  matches[0] = true;
  for (const std::string_view wanted : pattern) {
    std::vector<bool> next(text.size() + 1);
    for (std::size_t n = 0; n <= text.size(); ++n) {
      next[n] = wanted == "%" ? matches[n] || (n > 0 && next[n - 1])
                              : n > 0 && matches[n - 1] && Takes(wanted, text[n - 1]);
    }
    matches = next;
  }
  return matches.back();
}

}  // namespace

void CheckInput(FuzzInput input) {
  const CodePage codePage = input.TakeCodePage();
  const std::string pattern = input.TakeText();
  const std::string text = input.TakeText();
  Require(LikeMatches(pattern, text, codePage) ==
              MatchesPlainly(Split(pattern, codePage), Split(text, codePage)),
          "like() takes what the pattern means");
  Require(LikeMatches("%" + pattern + "%", pattern, codePage), "a text has itself in it");
}

}  // namespace feedloom
