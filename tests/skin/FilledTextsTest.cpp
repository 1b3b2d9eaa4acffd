#include <gtest/gtest.h>

#include "skin/FilledTexts.h"

namespace feedloom {
namespace {

TEST(FilledTexts, DollarsBecomeLineBreaks) {
  EXPECT_EQ(WithLineBreaks("First line$Second line$"), "First line\r\nSecond line\r\n");
}

TEST(FilledTexts, ATitleIsFilledInAsItStands) {
  EXPECT_EQ(WithTitle("%s: done", "100%s"), "100%s: done");
  EXPECT_EQ(WithTitle("done", "title"), "done");
}

TEST(FilledTexts, NumbersAreFilledInInTheirOrder) {
  EXPECT_EQ(WithNumbers("sent %d, received %d", {12, 0}), "sent 12, received 0");
  EXPECT_EQ(WithNumbers("%d of %d", {1}), "1 of %d");
  EXPECT_EQ(WithNumbers("done", {1}), "done");
}

}  // namespace
}  // namespace feedloom
