// Rules as JSON.
#include <gtest/gtest.h>

#include "filter/FilterJson.h"

namespace feedloom {
namespace {

TEST(FilterJson, ReadsWhatItWrites) {
  std::vector<FilterRule> rules{{.conditions = {{}}},
                                {.name = "\"한국\"\n\\",
                                 .isOn = false,
                                 .place = FilterPlace::Folder,
                                 .placeName = "News & more",
                                 .marksRead = true,
                                 .deletes = true,
                                 .cabinet = "Keep",
                                 .notice = FilterNotice::Never},
                                {.place = FilterPlace::Channel, .placeName = "http://a/?b&amp;c"}};
  for (const auto field : {FilterField::Text, FilterField::Category}) {
    for (const auto test : {FilterTest::HoldsNot, FilterTest::Matches}) {
      rules.front().conditions.push_back({field, test, "^a.*$"});
    }
  }
  const ReadFilters read = FiltersFromJson(FiltersToJson(rules));
  EXPECT_EQ(read.error, "");
  EXPECT_EQ(read.rules, rules);
}

TEST(FilterJson, SaysWhatItDoesNotKnow) {
  const struct {
    const char* json;
    const char* error;
  } rows[] = {
      {"{}", "filter 1: filters must be an array"},
      {"[{}, 1]", "filter 2: a filter must be an object"},
      {R"([{"nam": "a"}])", R"(filter 1: a filter has no "nam")"},
      {R"([{"on": "yes"}])", R"(filter 1: "on" has a value of another kind)"},
      {R"([{"folder": "a", "channel": "b"}])",
       R"(filter 1: a filter has one "folder" or "channel")"},
      {R"([{"conditions": {}}])", R"(filter 1: "conditions" must be an array)"},
      {R"([{"conditions": [{"field": "titel"}]}])", R"(filter 1: "field" cannot be "titel")"},
      {R"([{"conditions": [{"texts": ""}]}])", R"(filter 1: a condition has no "texts")"}};
  for (const auto& row : rows) {
    const ReadFilters read = FiltersFromJson(row.json);
    EXPECT_EQ(read.error, row.error);
    EXPECT_TRUE(read.rules.empty());
  }
  EXPECT_NE(FiltersFromJson("[{").error, "");
  EXPECT_NE(FiltersFromJson("[{\"name\": \"\xff\"}]").error, "");
}

}  // namespace
}  // namespace feedloom
