#include <gtest/gtest.h>

#include "shell/FrameTexts.h"

namespace feedloom {
namespace {

TEST(FrameTexts, DollarsBecomeLineBreaks) {
  EXPECT_EQ(WithLineBreaks("First line$Second line$"), "First line\r\nSecond line\r\n");
}

TEST(FrameTexts, ATitleIsFilledInAsItStands) {
  EXPECT_EQ(WithTitle("%s: done", "100%s"), "100%s: done");
  EXPECT_EQ(WithTitle("done", "title"), "done");
}

}  // namespace
}  // namespace feedloom
