#include "store/Like.h"

#include "text/Text.h"

namespace feedloom {
namespace {

std::string_view TakeChar(std::string_view& text, CodePage codePage) {
  const std::string_view taken = text.substr(0, codePage.CharLength(text));
  text.remove_prefix(taken.size());
  return taken;
}

bool SameChar(std::string_view a, std::string_view b) {
  return a.size() == 1 && b.size() == 1 ? EqualsIgnoringAsciiCase(a, b) : a == b;
}

}  // namespace

bool LikeMatches(std::string_view pattern, std::string_view text, CodePage codePage) {
  // After a mismatch it is enough to let the last "%" match one character more: whatever an earlier
  // "%" could match in addition, the last one can match too.
  bool hasRetry = false;
  std::string_view retryPattern;
  std::string_view retryText;
  for (;;) {
    if (pattern.starts_with('%')) {
      pattern.remove_prefix(1);
      if (pattern.empty()) return true;
      hasRetry = true;
      retryPattern = pattern;
      retryText = text;
      continue;
    }
    if (pattern.empty() && text.empty()) return true;
    if (!pattern.empty() && !text.empty()) {
      const std::string_view wanted = TakeChar(pattern, codePage);
      const std::string_view present = TakeChar(text, codePage);
      if (wanted == "_" || SameChar(wanted, present)) continue;
    }
    if (!hasRetry || retryText.empty()) return false;
    TakeChar(retryText, codePage);
    pattern = retryPattern;
    text = retryText;
  }
}

}  // namespace feedloom
