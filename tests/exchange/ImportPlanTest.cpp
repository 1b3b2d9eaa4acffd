#include <gtest/gtest.h>

#include "exchange/ImportPlan.h"

namespace feedloom {
namespace {

using Outlines = std::vector<OpmlOutline>;

OpmlOutline Outline(const std::string& text, const std::string& xmlUrl,
                    std::vector<OpmlOutline> children = {}, int deeperFeeds = 0) {
  OpmlOutline outline{"", "", text, "", xmlUrl, " h "};
  outline.children = std::move(children);
  outline.deeperFeeds = deeperFeeds;
  return outline;
}

// "Folder: title=address=home ...; ... -left out"
std::string Plan(const Outlines& outlines) {
  const auto plan = PlanImport(outlines, "list");
  if (!plan) return "none";
  std::string text;
  for (const SubscriptionFolder& folder : plan->folders) {
    text += folder.name + ":";
    for (const auto& [name, link, home] : folder.channels) text += " " + name + "=" + link + home;
    text += "; ";
  }
  return text + "-" + std::to_string(plan->leftOut);
}

TEST(ImportPlan, TopOutlinesBecomeFoldersAndLoneFeedsShareOneNamedLikeTheList) {
  const OpmlOutline x = Outline("x", "http://x/");
  const OpmlOutline y = Outline("y", "HTTPS://y/");
  const OpmlOutline none = Outline("", "");
  const OpmlOutline a = Outline("A", "", {x, y});
  const std::pair<Outlines, std::string> cases[] = {
      {{}, "-0"},
      {{a, Outline("A", "")}, "A: x=http://x/h y=HTTPS://y/h; A:; -0"},
      {{x, a, y}, "list: x=http://x/h y=HTTPS://y/h; A: x=http://x/h y=HTTPS://y/h; -0"},
      {{Outline(" A ", "http://a/", {x})}, "A: A=http://a/h x=http://x/h; -0"},
      {{Outline("", "", {none, x})}, "list: x=http://x/h; -1"},
      {{Outline("A", "", {Outline("Sub", "", {}, 3), Outline("Own", "http://own/", {}, 2)})},
       "A: Own=http://own/h; -5"},
      {Outlines(100'001, none), "none"},
      {{Outline("A", "", Outlines(100'000, none))}, "none"},
      {{Outline("A", "", Outlines(99'999, none))}, "A:; -99999"},
  };
  for (const auto& [outlines, plan] : cases) EXPECT_EQ(Plan(outlines), plan);
  OpmlOutline titled = Outline("  ", "http://t/");
  titled.title = " T ";
  EXPECT_EQ(Plan({titled, Outline("", "http://n/")}),
            "list: T=http://t/h http://n/=http://n/h; -0");
  for (const char* address :
       {"file:///etc/passwd", "javascript:alert(1)", "ftp://x/", "vfolder", "//x/feed", "http:x"}) {
    const OpmlOutline bad = Outline("x", address);
    EXPECT_EQ(Plan({Outline("A", address, {bad}), bad}), "A:; -3") << address;
  }
}

TEST(ImportPlan, AListIsNamedByItsFileOrItsAddress) {
  const std::pair<const char*, const char*> cases[] = {
      {"/home/me/My News.opml", "My News"},   {"feeds", "feeds"},
      {"http://x.example/a%20b.opml", "a b"}, {"http://x.example/lists/blogs.xml?v=2#top", "blogs"},
      {"http://x.example/", "x.example"},     {"https://x.example:8080", "x.example"},
      {"file:///tmp/mine.opml", "mine"}};
  for (const auto& [place, name] : cases) EXPECT_EQ(ListName(place), name) << place;
}

}  // namespace
}  // namespace feedloom
