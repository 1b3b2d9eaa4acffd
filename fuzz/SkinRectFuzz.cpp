// Parses any text as a skin value: rectangles, colours and texts with fields.
#include <algorithm>
#include <vector>

#include "fuzz/FuzzKit.h"
#include "skin/Colors.h"
#include "skin/Skin.h"
#include "skin/TextPlaceholders.h"
#include "text/Text.h"

namespace feedloom {
namespace {

std::vector<std::string> SplitAtCommas(const std::string& text) {
  std::vector<std::string> fields(1);
  for (const char c : text) {
    if (c == ',') {
      fields.emplace_back();
    } else {
      fields.back() += c;
    }
  }
  return fields;
}

// The value that atoi(3) returns, limited to a billion.
int NumberOf(const std::string& field) {
  std::size_t at = std::min(field.find_first_not_of(" \t\n\v\f\r"), field.size());
  const bool isNegative = field.compare(at, 1, "-") == 0;
  if (isNegative || field.compare(at, 1, "+") == 0) ++at;
  double number = 0;
  for (; at < field.size() && field[at] >= '0' && field[at] <= '9'; ++at) {
    number = number * 10 + (field[at] - '0');
  }
  number = std::min(number, 1e9);
  return static_cast<int>(isNegative ? -number : number);
}

void CheckRectangle(const std::string& value) {
  std::vector<std::string> fields = SplitAtCommas(value);
  fields.resize(4);
  const SkinRect rect = ParseSkinRect(value);
  const SkinRect expected{NumberOf(fields[0]), NumberOf(fields[1]), NumberOf(fields[2]),
                          NumberOf(fields[3])};
  Require(rect == expected, "a rectangle has the value's first four numbers");
  const std::string written = std::to_string(rect.left) + "," + std::to_string(rect.top) + "," +
                              std::to_string(rect.right) + "," + std::to_string(rect.bottom);
  Require(ParseSkinRect(" " + written + " ,5") == rect, "a rectangle reads back the same");
}

void CheckColour(const std::string& value) {
  const Skin skin(
      {.HostGetText = {}, .HostGetSkinValue = [&](const char*, const char*) { return value; }},
      HostConfig(Registry("/nowhere")));
  const bool isColour = value.size() == 7 && value[0] == '#' &&
                        value.find_first_not_of("0123456789abcdefABCDEF", 1) == value.npos;
  const ColorKey key{"KEY", 0xABCDEF};
  const std::uint32_t expected =
      isColour ? static_cast<std::uint32_t>(std::stoul(value.substr(1), nullptr, 16)) : key.builtIn;
  Require(GetColor(skin, key) == expected, "a colour is #RRGGBB or the built-in one");
}

void CheckFields(const std::string& text) {
  const auto dollars = static_cast<std::size_t>(std::ranges::count(text, '$'));
  Require(WithLineBreaks(text).size() == text.size() + dollars, "each $ becomes a line break");
  const bool hasTitle = text.find("%s") != text.npos;
  Require(WithTitle(text, "%s%s") == text || hasTitle, "only %s is filled");
  Require(WithTitle(text, "%s%s").size() == text.size() + (hasTitle ? 2 : 0),
          "a title is put in once, whatever it holds");
}

}  // namespace

void CheckInput(FuzzInput input) {
  const std::string value(input.Rest());
  CheckRectangle(value);
  CheckColour(value);
  CheckFields(value);
}

}  // namespace feedloom
