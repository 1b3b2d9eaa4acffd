// Counts behind names.
#include <gtest/gtest.h>

#include <tuple>

#include "ui/tree/RowLabel.h"

namespace feedloom {

TEST(RowLabel, GivesBackTheNameThatACountWasAppendedTo) {
  const std::tuple<const char*, int, const char*, const char*> cases[] = {
      {"Day", 12, "Day(12)", "Day"}, {"Day(2)", 1, "Day(2)(1)", "Day(2)"},
      {"Day", 0, "Day", "Day"},      {"", 3, "(3)", ""},
      {"Day(2", 0, "Day(2", "Day"},  {")", -1, ")", ")"}};
  for (const auto& [name, count, label, stripped] : cases) {
    EXPECT_EQ(AppendCount(name, count), label);
    EXPECT_EQ(StripCount(label), stripped);
  }
}

}  // namespace feedloom
