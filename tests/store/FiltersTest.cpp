// The stored filters, and what they do to stored posts.
#include <gtest/gtest.h>

#include "store/Cabinets.h"
#include "store/FilterPosts.h"
#include "store/Filters.h"
#include "store/Folders.h"
#include "store/StoreKit.h"

namespace feedloom {
namespace {

struct Filters : testing::Test {
  Filters() { db_.AddTables({"gone_links.sql", "post_details.sql", "filters.sql"}); }

  static FilterRule Title(const std::string& text) { return {.conditions = {{.text = text}}}; }
  std::optional<int> Count(const FilterRule& rule) { return CountFiltered(store_, rule, {}); }
  FilterSums Apply(const FilterRule& rule) { return ApplyFilters(store_, {&rule, 1}, {}).value(); }

  TestStore db_;
  Store& store_ = db_.Get();
  int news_ = AddFolder(store_, "News", 4);
  int daily_ = db_.AddChannelWithPosts(news_, "Daily", 12);
  int keep_ = AddCabinet(store_, "Keep", 7);
};

TEST_F(Filters, AreStoredAllTogetherAsTheyAre) {
  const std::vector<FilterRule> rules{Title("it's &lt; \"한국\""),
                                      {.name = "두번째", .isOn = false}};
  EXPECT_EQ(LoadFilters(store_), std::vector<FilterRule>());
  EXPECT_TRUE(SaveFilters(store_, rules));
  EXPECT_EQ(LoadFilters(store_), rules);
  db_.Sql(
      "Create Trigger TR_TEST Before Insert On TB_FILTER When (Select count(*) From TB_FILTER) = 2 "
      "Begin Select Raise(Abort, 'no'); End");
  EXPECT_FALSE(SaveFilters(store_, std::vector(3, Title("other"))));
  EXPECT_EQ(LoadFilters(store_), rules) << "all or nothing";
  EXPECT_EQ(db_.Reports().size(), 1u);
}

TEST_F(Filters, AreNoneInADatabaseWithoutTheTable) {
  db_.Sql("Drop Table TB_FILTER");
  EXPECT_EQ(LoadFilters(store_), std::vector<FilterRule>());
  EXPECT_FALSE(SaveFilters(store_, {}));
}

TEST_F(Filters, CountThePostsThatARuleMeets) {
  FilterRule rule = Title("post 1");
  rule.isOn = false;
  EXPECT_EQ(Count(rule), 4) << "Post 1, 10, 11, 12";
  rule.place = FilterPlace::Folder;
  rule.placeName = "News";
  EXPECT_EQ(Count(rule), 4);
  rule.placeName = "Other";
  EXPECT_EQ(Count(rule), 0);
  db_.Sql("Insert Into TB_POST_DETAIL Values(3, 'Ann', 'Sea')");
  EXPECT_EQ(Count({.conditions = {{.field = FilterField::Category, .text = "sea"}}}), 1);
  db_.AddChannelWithPosts(news_, "Long", 1200);
  EXPECT_EQ(Count({}), 1212) << "of several steps";
  std::stop_source stopped;
  stopped.request_stop();
  EXPECT_EQ(CountFiltered(store_, rule, stopped.get_token()), std::nullopt);
}

TEST_F(Filters, MarkDeleteAndCopyStoredPosts) {
  FilterRule rule = Title("post 1");
  rule.marksRead = true;
  rule.cabinet = "Keep";
  EXPECT_EQ(Apply(rule), (FilterSums{.read = 4, .saved = 4}));
  EXPECT_EQ(db_.Count("TB_POST Where post_readStatus = 1 and post_title like 'Post 1%'"), 4);
  EXPECT_EQ(db_.Count("TB_SCRAP_POST"), 4);
  EXPECT_EQ(Apply(rule), FilterSums()) << "once is enough";
  rule.cabinet = "Gone";
  EXPECT_EQ(Apply(rule), FilterSums());
  rule.deletes = true;
  EXPECT_EQ(Apply(rule), (FilterSums{.deleted = 4}));
  EXPECT_EQ(db_.Count("TB_POST"), 8);
  EXPECT_EQ(db_.Count("TB_GONE_LINK"), 4) << "they do not come back";
  rule.isOn = false;
  rule.conditions.clear();
  EXPECT_EQ(Apply(rule), FilterSums());
  EXPECT_EQ(db_.Count("TB_POST"), 8) << "a rule that is off, or meets nothing, deletes nothing";
}

}  // namespace
}  // namespace feedloom
