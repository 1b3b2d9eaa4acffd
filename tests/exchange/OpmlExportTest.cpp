#include <gtest/gtest.h>

#include "exchange/ListDocuments.h"
#include "exchange/OpmlExport.h"
#include "exchange/OpmlText.h"

namespace feedloom {
namespace {

std::string Document(std::string_view outlines) {
  return R"(<?xml version="1.0" encoding="EUC-KR"?><opml version="1.0"><head><title>Skyfold OPML)"
         "</title><dateCreated>2026-03-04T12:00:00</dateCreated><ownerName>Skyfold</ownerName>"
         "</head><body>" +
         std::string(outlines) + "</body></opml>";
}

TEST(OpmlText, EscapesOnlyAmpersandsAndKeepsTheCodePageThatItDeclares) {
  const SubscriptionList list = {
      {Korean("똠") + " R&D <Lab>", {{R"("A" &amp; 'B')", "http://a/?x=1&y=2&z"}}}};
  EXPECT_EQ(
      BuildOpml(list, CodePage::Korean(), "2026-03-04T12:00:00"),
      Document(
          R"(<outline text=")" + Korean("똠") +
          R"( R&amp;D <Lab>"><outline type="rss" )"
          R"(text=""A" &amp;amp; 'B'" title=""A" &amp;amp; 'B'" xmlUrl="http://a/?x=1&amp;y=2&amp;z"/></outline>)"));
  EXPECT_NE(BuildOpml({}, CodePage::Utf8(), "").find(R"( encoding="UTF-8"?>)"), std::string::npos);
}

class OpmlExport : public testing::Test {
 protected:
  // Why the stored list could not be written.
  std::string Export(const std::string& path) {
    const auto list = StoredSubscriptions(db_.Get());
    return list ? WriteOpml(db_.Get(), path, *list).value_or("") : "not loaded";
  }

  TestStore db_;
  TempFolder files_;
};

TEST_F(OpmlExport, WritesTheStoredListInTheOrderOfTheTreeWithThePresentTime) {
  db_.Clock().Set(NoonOf(2026, 3, 4));
  db_.Sql(
      "insert into TB_FOLDER values (1, 'Second', 2), (2, 'First', 1); insert into TB_CHANNEL"
      "(channel_title, channel_xmllink, channel_folderID, channel_order) "
      "values ('b', 'http://b/', 1, 2), ('a', 'http://a/', 1, 1), ('lost', 'http://l/', 99, 0)");
  ASSERT_EQ(Export(files_.File("out.xml")), "");
  EXPECT_EQ(
      files_.Read("out.xml"),
      Document(
          R"(<outline text="First"></outline><outline text="Second"><outline type="rss" text="a" )"
          R"(title="a" xmlUrl="http://a/"/><outline type="rss" text="b" title="b" xmlUrl="http://b/"/></outline>)"));
}

TEST_F(OpmlExport, WhatCannotBeLoadedOrWrittenIsToldWithItsReason) {
  EXPECT_EQ(Export(files_.Path()),
            "Cannot create the file '" + files_.Path() + "': Is a directory.");
  EXPECT_NE(Export(files_.File("absent/mine.xml")).find("No such file or directory"),
            std::string::npos);
  db_.Sql("drop table TB_CHANNEL");
  EXPECT_EQ(Export(files_.File("out.xml")), "not loaded");
}

}  // namespace
}  // namespace feedloom
