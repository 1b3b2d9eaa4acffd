#include "skin/TextPlaceholders.h"

#include "text/Text.h"

namespace feedloom {
namespace {

// Replaces the first `field` with `value`.
std::string WithField(std::string_view text, std::string_view field, std::string_view value) {
  std::string filled(text);
  const auto at = filled.find(field);
  if (at != std::string::npos) filled.replace(at, field.size(), value);
  return filled;
}

}  // namespace

std::string WithLineBreaks(std::string_view text) { return ReplaceAll(text, "$", "\r\n"); }

std::string WithTitle(std::string_view text, std::string_view title) {
  return WithField(text, "%s", title);
}

std::string WithNumbers(std::string_view text, std::initializer_list<int> numbers) {
  std::string filled(text);
  for (const int number : numbers) filled = WithField(filled, "%d", std::to_string(number));
  return filled;
}

}  // namespace feedloom
