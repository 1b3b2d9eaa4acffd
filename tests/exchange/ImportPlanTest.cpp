#include <gtest/gtest.h>

#include "exchange/ImportPlan.h"

namespace feedloom {
namespace {

OpmlOutline Feed(const std::string& text, const std::string& xmlUrl) {
  return {.title = "", .url = "", .text = text, .type = "", .xmlUrl = xmlUrl, .htmlUrl = ""};
}

OpmlOutline Folder(const std::string& text, std::vector<OpmlOutline> children) {
  OpmlOutline folder = Feed(text, "");
  folder.children = std::move(children);
  return folder;
}

// "Folder: title=address, ...; ... -left out"
std::string Plan(const std::vector<OpmlOutline>& outlines) {
  const auto plan = PlanImport(outlines, "list");
  if (!plan) return "none";
  std::string text;
  for (const SubscriptionFolder& folder : plan->folders) {
    text += folder.name + ":";
    for (const Subscription& channel : folder.channels) {
      text += " " + channel.title + "=" + channel.xmlLink;
    }
    text += "; ";
  }
  return text + "-" + std::to_string(plan->leftOut);
}

TEST(ImportPlan, TopOutlinesBecomeFoldersAndTheirsChannels) {
  EXPECT_EQ(Plan({}), "-0");
  EXPECT_EQ(Plan({Folder("A", {Feed("x", "http://x/"), Feed("y", "https://y/")}), Folder("B", {})}),
            "A: x=http://x/ y=https://y/; B:; -0");
  EXPECT_EQ(Plan({Folder("A", {}), Folder("A", {})}), "A:; A:; -0");
}

TEST(ImportPlan, FeedsWithoutAFolderComeTogetherInOneThatIsNamedLikeTheList) {
  EXPECT_EQ(
      Plan({Feed("x", "http://x/"), Folder("A", {Feed("y", "http://y/")}), Feed("z", "http://z/")}),
      "list: x=http://x/ z=http://z/; A: y=http://y/; -0");
}

TEST(ImportPlan, AFolderWithAFeedOfItsOwnKeepsIt) {
  OpmlOutline both = Folder("A", {Feed("x", "http://x/")});
  both.xmlUrl = "http://a/";
  EXPECT_EQ(Plan({both}), "A: A=http://a/ x=http://x/; -0");
}

TEST(ImportPlan, NamesComeFromTextOrElseTitleOrElseThePlace) {
  const auto named = [](const std::string& text, const std::string& title) {
    OpmlOutline outline = Folder(text, {Feed(text, "http://x/")});
    outline.title = outline.children[0].title = title;
    return Plan({outline});
  };
  EXPECT_EQ(named(" text ", "title"), "text: text=http://x/; -0");
  EXPECT_EQ(named("  ", "title"), "title: title=http://x/; -0");
  EXPECT_EQ(named("", ""), "list: http://x/=http://x/; -0");
}

TEST(ImportPlan, WhatHasNoFeedOfTheWebIsLeftOutAndCounted) {
  for (const char* address :
       {"file:///etc/passwd", "javascript:alert(1)", "ftp://x/", "vfolder", "//x/feed", "http:x"}) {
    EXPECT_EQ(Plan({Folder("A", {Feed("x", address)})}), "A:; -1") << address;
    EXPECT_EQ(Plan({Feed("x", address)}), "-1") << address;
  }
  EXPECT_EQ(Plan({Folder("A", {Feed("a note", ""), Feed("x", "HTTP://x/")})}),
            "A: x=HTTP://x/; -1");
}

TEST(ImportPlan, FeedsOfDeeperFoldersAreLeftOutAndCounted) {
  OpmlOutline sub = Feed("Sub", "");
  sub.deeperFeeds = 3;
  OpmlOutline subWithFeed = Feed("Own", "http://own/");
  subWithFeed.deeperFeeds = 2;
  EXPECT_EQ(Plan({Folder("A", {sub, subWithFeed})}), "A: Own=http://own/; -5");
}

TEST(ImportPlan, AListThatIsTooLongToBeAnybodysIsRefused) {
  EXPECT_EQ(Plan(std::vector<OpmlOutline>(100'001, Folder("A", {}))), "none");
  EXPECT_EQ(Plan({Folder("A", std::vector<OpmlOutline>(100'000, Feed("", "")))}), "none");
}

TEST(ImportPlan, AListIsNamedByItsFileOrItsAddress) {
  struct Case {
    const char* place;
    const char* name;
  };
  for (const auto& [place, name] : {Case{"/home/me/My News.opml", "My News"},
                                    {"feeds", "feeds"},
                                    {"http://x.example/lists/blogs.xml?v=2#top", "blogs"},
                                    {"http://x.example/a%20b.opml", "a b"},
                                    {"http://x.example/", "x.example"},
                                    {"https://x.example:8080", "x.example"},
                                    {"file:///tmp/mine.opml", "mine"}}) {
    EXPECT_EQ(ListName(place), name) << place;
  }
}

}  // namespace
}  // namespace feedloom
