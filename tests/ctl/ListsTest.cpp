// Subscriptions as OPML, by the real program.
#include "ctl/CtlFixture.h"
#include "exchange/ListDocuments.h"

namespace feedloom {
namespace {

class Lists : public CtlFixture {
 protected:
  // "folder/title ...", in the order of `list`.
  std::string Listed() const {
    std::string text;
    const auto list = RunJson("list");
    for (const auto& folder : list["folders"]) {
      for (const auto& channel : folder["channels"]) {
        text += folder["name"].get<std::string>() + "/" + channel["title"].get<std::string>() + " ";
      }
    }
    return text;
  }
};

TEST_F(Lists, AreImportedFromFilesAndAddressesAndExportedAgain) {
  RunJson("init --lang ENG");
  const std::string list =
      OpmlDocument("<outline text='News'>" + FeedOutline("a &amp; b", "http://a/?x&amp;y") +
                   FeedOutline("script", "javascript:x") + "</outline>");
  const auto sums = RunJson("import " + folder_.Write("mine.opml", list));
  EXPECT_EQ(sums.dump(), R"({"added":1,"folders":1,"leftOut":1,"present":0})");
  server_.Serve("/lists/web.opml", OpmlDocument(FeedOutline("c", "http://c/")));
  EXPECT_EQ(Run("import " + server_.Url("/lists/web.opml")).out,
            "Added 1 channels and 1 folders; 0 were there already, 0 left out\n");
  EXPECT_EQ(Listed(), "My channels/Getting started with Feedloom News/a & b web/c ");

  EXPECT_EQ(RunJson("export " + folder_.File("out.opml"))["channels"], 3);
  EXPECT_NE(
      folder_.Read("out.opml")
          .find(
              "<outline text=\"News\"><outline type=\"rss\" text=\"a &amp; b\" title=\"a &amp; b\""
              " xmlUrl=\"http://a/?x&amp;y\"/></outline>"),
      std::string::npos);
}

TEST_F(Lists, WhatCannotBeReadOrWrittenIsAnErrorAndChangesNothing) {
  RunJson("init");
  const std::string before = Listed();
  const std::string malformed = folder_.Write("bad.opml", OpmlDocument("<outline text='A'>"));
  const CtlResult result = Run("import " + malformed);
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.err,
            "feedloomctl: " + malformed + ": it cannot be read, or is not well-formed XML\n");
  EXPECT_EQ(Run("import " + server_.Url("/absent")).status, 1);
  EXPECT_EQ(Listed(), before);
  const CtlResult unwritten = Run("export " + folder_.File("absent/out.opml"));
  EXPECT_EQ(unwritten.status, 1);
  EXPECT_NE(unwritten.err.find("No such file or directory"), std::string::npos);
}

}  // namespace
}  // namespace feedloom
