#include <gtest/gtest.h>

#include "exchange/OpmlText.h"
#include "store/StoreKit.h"

namespace feedloom {
namespace {

constexpr std::string_view kHead =
    "<?xml version=\"1.0\" encoding=\"EUC-KR\"?><opml version=\"1.0\"><head><title>Skyfold OPML"
    "</title><dateCreated>2026-11-22T09:30:05</dateCreated><ownerName>Skyfold</ownerName></head>"
    "<body>";
constexpr std::string_view kEnd = "</body></opml>";

std::string Opml(const SubscriptionList& list) {
  return BuildOpml(list, CodePage::Korean(), "2026-11-22T09:30:05");
}

std::string Document(std::string_view outlines) {
  return std::string(kHead).append(outlines).append(kEnd);
}

TEST(OpmlText, IsOneLineWithEachFolderAndItsChannels) {
  EXPECT_EQ(Opml({}), Document(""));
  EXPECT_EQ(Opml({{"Empty"}, {"News", {{"One", "http://a/1"}, {"Two", "https://b/2"}}}}),
            Document("<outline text=\"Empty\"></outline><outline text=\"News\">"
                     "<outline type=\"rss\" text=\"One\" title=\"One\" xmlUrl=\"http://a/1\"/>"
                     "<outline type=\"rss\" text=\"Two\" title=\"Two\" xmlUrl=\"https://b/2\"/>"
                     "</outline>"));
}

TEST(OpmlText, OnlyAmpersandsAreEscaped) {
  EXPECT_EQ(Opml({{"R&D <Lab>", {{"\"A\" &amp; 'B'", "http://a/?x=1&y=2&z"}}}}),
            Document("<outline text=\"R&amp;D <Lab>\"><outline type=\"rss\" "
                     "text=\"\"A\" &amp;amp; 'B'\" title=\"\"A\" &amp;amp; 'B'\" "
                     "xmlUrl=\"http://a/?x=1&amp;y=2&amp;z\"/></outline>"));
}

TEST(OpmlText, TextsStayInTheModulesCodePageWhichIsDeclared) {
  const std::string name = Korean("똠방각하");
  EXPECT_EQ(Opml({{name}}), Document("<outline text=\"" + name + "\"></outline>"));
  const std::string utf8 = BuildOpml({{"日本"}}, CodePage::Utf8(), "now");
  EXPECT_TRUE(utf8.starts_with("<?xml version=\"1.0\" encoding=\"UTF-8\"?>"));
  EXPECT_NE(utf8.find("<outline text=\"日本\">"), std::string::npos);
}

}  // namespace
}  // namespace feedloom
