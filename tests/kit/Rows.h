#pragma once

#include <gtest/gtest.h>

namespace feedloom {

// Expects of each row, "input -> output", that `function` makes the one of the other.
template <typename Function>
void ExpectRows(const Function& function, std::initializer_list<std::string> rows) {
  for (const std::string& row : rows) {
    const auto arrow = row.find(" -> ");
    const std::string input = row.substr(0, arrow);
    EXPECT_EQ(function(input), row.substr(arrow + 4)) << row;
  }
}

inline std::string Repeated(std::string_view piece, std::size_t count) {
  std::string text;
  while (count-- > 0) text += piece;
  return text;
}

}  // namespace feedloom
