#include <gtest/gtest.h>

#include "ingest/FeedMemory.h"
#include "kit/TempFolder.h"

namespace feedloom {
namespace {

bool All(int) { return true; }

TEST(FeedMemory, WritesWhatItReads) {
  using std::chrono::sys_days;
  const FeedVisits visits = {
      {1, {"http://a/feed", {"\"e\"", "Sat, 21 Nov 2026 12:00:00 GMT"}}},
      {2, {"http://b/?q=\xC7\xD1", {"W/\"x y\"", ""}, sys_days(std::chrono::year(2026) / 11 / 22)}},
      {-3, {}}};
  EXPECT_EQ(ReadFeedVisits(FeedVisitsText(visits)), visits);
  EXPECT_EQ(ReadFeedVisits(FeedVisitsText({{1, {"http://a\tb"}}, {2, {"http://c"}}})),
            (FeedVisits{{2, {"http://c"}}}));
}

TEST(FeedMemory, TakesNothingFromADamagedLine) {
  const std::string good = "7\thttp://a\t\"e\"\t\t0\n";
  const std::string head = FeedVisitsText({});
  for (const char* bad : {"", "7", "7\thttp://b\t\t", "x\thttp://b\t\t\t0", "7\thttp://b\t\t\t1x",
                          "7\thttp://b\t\t\t", "99999999999\thttp://b\t\t\t0",
                          "7\thttp://b\t\x01\t\t0", "7\thttp://b\t\t\t0\t"}) {
    const FeedVisits visits = ReadFeedVisits(head + good + bad + "\n");
    EXPECT_EQ(visits, (FeedVisits{{7, {"http://a", {"\"e\"", ""}}}})) << bad;
  }
  for (const std::string& text : {std::string(), "Feedloom feed memory 2\n" + good, good}) {
    EXPECT_TRUE(ReadFeedVisits(text).empty()) << text;
  }
}

TEST(FeedMemory, TwoProgramsWriteOnlyWhatTheyFoundOut) {
  const TempFolder folder;
  const std::string path = FeedMemoryPath(folder.Path());
  FeedMemory one(path);
  FeedMemory other(path);
  one.Load();
  other.Load();
  one.Remember(1, {"http://a", {"1", ""}});
  EXPECT_FALSE(one.Save(All));
  other.Remember(2, {"http://b", {"2", ""}});
  EXPECT_FALSE(other.Save(All));
  one.Load();
  EXPECT_EQ(one.Last(1, "http://a").validators.etag, "1");
  EXPECT_EQ(one.Last(2, "http://b").validators.etag, "2");
  EXPECT_EQ(one.Last(2, "http://moved").validators, Validators());
  one.Remember(3, {"http://c", {"3", ""}});
  EXPECT_FALSE(one.Save([](int id) { return id != 2; }));
  one.Remember(1, {"http://a"});
  EXPECT_FALSE(one.Save(All));
  EXPECT_EQ(ReadFeedVisits(folder.Read("feed_memory")), (FeedVisits{{3, {"http://c", {"3", ""}}}}));
}

}  // namespace
}  // namespace feedloom
