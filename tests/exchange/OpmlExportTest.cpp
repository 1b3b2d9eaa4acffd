#include <gtest/gtest.h>

#include "exchange/ListDocuments.h"
#include "exchange/OpmlExport.h"
#include "exchange/OpmlImport.h"
#include "ingest/IngestKit.h"

namespace feedloom {
namespace {

class OpmlExport : public testing::Test {
 protected:
  static std::string Export(TestStore& db, const std::string& path) {
    const auto list = StoredSubscriptions(db.Get());
    EXPECT_TRUE(list);
    const Failure failure = WriteOpml(db.Get(), path, *list);
    return failure.value_or("");
  }

  static void Import(IngestKit& kit, const std::string& path) {
    const ReadList list = ReadSubscriptions(*kit.Services(), {.place = path}, {});
    ASSERT_TRUE(list.plan) << list.error;
    AddSubscriptions(kit.db.Get(), *list.plan, NameClash::Rename,
                     {.onFolder = [](const auto&) {}, .onChannel = [](const auto&) {}}, {});
  }

  static constexpr char kFolders[] =
      "insert into TB_FOLDER(folder_id, folder_name, folder_order) values (1, 'Second', 2), "
      "(2, 'First', 1)";

  IngestKit kit_;
  TempFolder files_;
};

TEST_F(OpmlExport, WritesTheStoredListInTheOrderOfTheTreeWithThePresentTime) {
  kit_.db.Clock().Set(NoonOf(2026, 3, 4));
  kit_.db.Sql(kFolders);
  kit_.db.Sql(
      "insert into TB_CHANNEL(channel_title, channel_xmllink, channel_folderID, channel_order) "
      "values ('b', 'http://b/', 1, 2), ('a', 'http://a/', 1, 1), ('lost', 'http://l/', 99, 0)");
  ASSERT_EQ(Export(kit_.db, files_.File("out.xml")), "");
  EXPECT_EQ(files_.Read("out.xml"),
            "<?xml version=\"1.0\" encoding=\"EUC-KR\"?><opml version=\"1.0\"><head><title>Skyfold "
            "OPML</title><dateCreated>2026-03-04T12:00:00</dateCreated><ownerName>Skyfold"
            "</ownerName></head><body><outline text=\"First\"></outline><outline text=\"Second\">"
            "<outline type=\"rss\" text=\"a\" title=\"a\" xmlUrl=\"http://a/\"/>"
            "<outline type=\"rss\" text=\"b\" title=\"b\" xmlUrl=\"http://b/\"/>"
            "</outline></body></opml>");
}

TEST_F(OpmlExport, ARoundTripThroughAnEmptyProfileGivesTheSameText) {
  const std::string list =
      OpmlDocument("<outline text='빈 폴더'/><outline text='R&amp;D (2)'>" +
                   FeedOutline("하나 &amp; 둘", "http://x/?a=1&amp;b=2") +
                   FeedOutline("no title", "https://y/") + "</outline>" + NumberedFolder("A", 30));
  Import(kit_, files_.Write("list.opml", list));
  IngestKit other;
  for (IngestKit* kit : {&kit_, &other}) kit->db.Clock().Set(NoonOf(2026, 3, 4));
  ASSERT_EQ(Export(kit_.db, files_.File("once.xml")), "");
  Import(other, files_.File("once.xml"));
  ASSERT_EQ(Export(other.db, files_.File("twice.xml")), "");
  EXPECT_EQ(files_.Read("twice.xml"), files_.Read("once.xml"));
  EXPECT_NE(files_.Read("once.xml").find(Korean("하나 &amp; 둘")), std::string::npos);
}

TEST_F(OpmlExport, WhatCannotBeWrittenIsToldWithItsReason) {
  EXPECT_EQ(Export(kit_.db, files_.Path()),
            "Cannot create the file '" + files_.Path() + "': Is a directory.");
  EXPECT_NE(Export(kit_.db, files_.File("absent/mine.xml")).find("No such file or directory"),
            std::string::npos);
}

}  // namespace
}  // namespace feedloom
