#include <gtest/gtest.h>

#include "ui/browser/GeneratedPages.h"

namespace feedloom {
namespace {

TEST(GeneratedPages, AreFoundByTheirNumbers) {
  GeneratedPages pages;
  const int first = pages.Add("first");
  const int second = pages.Add("second");
  EXPECT_EQ(pages.Find(first), QByteArray("first"));
  EXPECT_EQ(pages.Find(second), QByteArray("second"));
  EXPECT_EQ(pages.Find(second + 1), std::nullopt);
}

TEST(GeneratedPages, TheOldestGoWhenThereAreTooManyOrTheyAreTooLarge) {
  GeneratedPages many;
  const int first = many.Add("first");
  for (int i = 0; i < 200; ++i) many.Add("page");
  EXPECT_EQ(many.Find(first), std::nullopt);
  EXPECT_NE(many.Find(first + 1), std::nullopt);

  GeneratedPages large;
  const QByteArray bytes(40 << 20, 'x');
  const int dropped = large.Add(bytes);
  const int kept = large.Add(bytes);
  EXPECT_EQ(large.Find(dropped), std::nullopt);
  EXPECT_EQ(large.Find(kept)->size(), bytes.size());
}

}  // namespace
}  // namespace feedloom
