#include <gtest/gtest.h>

#include "ui/browser/GeneratedPages.h"

namespace feedloom {
namespace {

TEST(GeneratedPages, AreFoundByTheirNumbers) {
  GeneratedPages pages;
  const int first = pages.Add({.html = "first"});
  const int second = pages.Add({.html = "second"});
  EXPECT_EQ(pages.Find(first)->html, "first");
  EXPECT_EQ(pages.Find(second)->html, "second");
  EXPECT_FALSE(pages.Find(second + 1));
}

TEST(GeneratedPages, TheOldestGoWhenThereAreTooManyOrTheyAreTooLarge) {
  GeneratedPages many;
  const int first = many.Add({.html = "first"});
  for (int i = 0; i < 1000; ++i) many.Add({.html = "page"});
  EXPECT_FALSE(many.Find(first));
  EXPECT_TRUE(many.Find(first + 1));

  GeneratedPages large;
  const QByteArray bytes(40 << 20, 'x');
  const int dropped = large.Add({.html = bytes});
  const int kept = large.Add({.html = bytes});
  EXPECT_FALSE(large.Find(dropped));
  EXPECT_EQ(large.Find(kept)->html.size(), bytes.size());
}

}  // namespace
}  // namespace feedloom
