// Which posts meet which rules.
#include <gtest/gtest.h>

#include "filter/FilterSet.h"

namespace feedloom {
namespace {

using enum FilterField;
using enum FilterTest;

const FilteredPost kPost{.folder = "News",
                         .channel = "http://example.com/feed",
                         .title = "Ärger mit 한국어",
                         .html = "<p>Plain <b>t</b>ext &amp; more</p><script>hidden()</script>",
                         .link = "http://example.com/1",
                         .authors = "Ann\nBob",
                         .categories = "Sea\nAir"};

FilterRule Rule(FilterField field, FilterTest test, std::string text) {
  return {.conditions = {{field, test, std::move(text)}}, .marksRead = true};
}

bool IsMet(const FilterRule& rule) { return FilterSet({&rule, 1}).DeedsFor(kPost).isMet; }

TEST(FilterSet, LooksAtEachFieldInEachWay) {
  const struct {
    FilterField field;
    FilterTest test;
    const char* text;
    bool isMet;
  } rows[] = {{Title, Holds, "ärger", true},        {Title, Holds, "국", true},
              {Title, Holds, "anger", false},       {Title, HoldsNot, "anger", true},
              {Title, HoldsNot, "ÄRGER", false},    {Title, Holds, ".", false},
              {Title, Matches, "^Ä.*어$", true},    {Title, Matches, "ärger", false},
              {Title, Matches, "(?i)ärger", true},  {Text, Holds, "plain text & more", true},
              {Text, Holds, "hidden", false},       {Author, Matches, "(?m)^Bob$", true},
              {Link, Holds, "EXAMPLE.com/1", true}, {Category, Holds, "air", true}};
  for (const auto& row : rows) {
    EXPECT_EQ(IsMet(Rule(row.field, row.test, row.text)), row.isMet) << row.text;
  }
}

TEST(FilterSet, MeetsOnlyPostsOfItsPlaceAndOfAllConditions) {
  FilterRule rule{.conditions = {{Title, Holds, "mit"}, {Author, Holds, "ann"}}};
  EXPECT_TRUE(IsMet(rule));
  rule.place = FilterPlace::Folder;
  EXPECT_FALSE(IsMet(rule)) << "a folder without a name";
  rule.placeName = "News";
  EXPECT_TRUE(IsMet(rule));
  rule.place = FilterPlace::Channel;
  EXPECT_FALSE(IsMet(rule));
  rule.placeName = "http://example.com/feed";
  EXPECT_TRUE(IsMet(rule));
  rule.conditions.push_back({Category, Holds, "earth"});
  EXPECT_FALSE(IsMet(rule));
  rule.conditions.clear();
  EXPECT_TRUE(IsMet(rule)) << "without a condition it meets every post";
}

TEST(FilterSet, LeavesOutRulesThatAreOffOrFaultyAndSaysWhy) {
  FilterRule off = Rule(Title, Holds, "mit");
  off.isOn = false;
  EXPECT_FALSE(IsMet(off));
  const auto fault = [](const std::string& text, FilterTest test = Matches) {
    EXPECT_FALSE(IsMet(Rule(Title, test, text)));
    return FaultOf({Title, test, text}).value();
  };
  EXPECT_EQ(fault("").kind, FilterFault::Kind::NoText);
  EXPECT_EQ(fault("", HoldsNot).kind, FilterFault::Kind::NoText);
  EXPECT_EQ(fault(std::string(1001, 'a')).kind, FilterFault::Kind::TooLong);
  EXPECT_EQ(fault("(a").kind, FilterFault::Kind::Invalid);
  EXPECT_EQ(fault("(a").reason, "missing ): (a");
  EXPECT_EQ(fault("((a{100}){100}){100}").kind, FilterFault::Kind::Invalid) << "it would be huge";
  EXPECT_EQ(fault("\\1").kind, FilterFault::Kind::Invalid) << "it would not be linear";
  EXPECT_FALSE(FaultOf({Title, Holds, "(a"})) << "no expression";
}

TEST(FilterSet, DoesWhatAllRulesWantOfWhichTheLastDecidesOnTheNotice) {
  const auto all = [](bool marksRead, std::string cabinet, FilterNotice notice) {
    return FilterRule{.marksRead = marksRead, .cabinet = std::move(cabinet), .notice = notice};
  };
  std::vector<FilterRule> rules{all(false, "Keep", FilterNotice::Never),
                                all(true, "Keep", FilterNotice::Always),
                                all(false, "More", FilterNotice::AsSet)};
  EXPECT_EQ(FilterSet(rules).DeedsFor(kPost), (FilterDeeds{.isMet = true,
                                                           .marksRead = true,
                                                           .cabinets = {"Keep", "More"},
                                                           .notice = FilterNotice::Always}));
  rules[1].deletes = true;
  EXPECT_EQ(FilterSet(rules).DeedsFor(kPost), (FilterDeeds{.isMet = true, .deletes = true}));
}

TEST(FilterSet, LooksAtTheBeginningOfLongTextsInATimeThatGrowsWithThem) {
  FilteredPost post{.html = std::string(kFilteredText - 4, 'a') + " end, and more"};
  const auto meets = [&](const std::string& text) {
    const FilterRule rule = Rule(Text, Matches, text);
    return FilterSet({&rule, 1}).DeedsFor(post).isMet;
  };
  EXPECT_TRUE(meets("end$"));
  EXPECT_FALSE(meets("more"));
  EXPECT_FALSE(meets("(a*)*(a|aa)+b")) << "an expression that would take ages by trying";
}

}  // namespace
}  // namespace feedloom
