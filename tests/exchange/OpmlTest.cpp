// Imports and exports on real files, a real server and a real database.
#include <fmt/core.h>

#include "exchange/OpmlExport.h"
#include "exchange/OpmlImport.h"
#include "exchange/OpmlText.h"
#include "kit/FeedDocuments.h"
#include "refresh/RefreshKit.h"

namespace feedloom {

struct Opml : testing::Test {
  ReadList Read(const ListSource& source) {
    return ReadSubscriptions(*kit_.Services(clock_), source, {});
  }
  std::string ErrorIn(const std::string& bytes) {
    return Read({.place = files_.Write("list.opml", bytes)}).error;
  }
  std::string ErrorAt(const std::string& address) { return Read({address, true}).error; }

  // Adds the list in the file "list.opml" to the store: "added/present/left out", or the error. A
  // stop is requested when the folder "Stop" is added.
  std::string ImportFile(NameClash clash = NameClash::Rename) {
    const ReadList list = Read({.place = files_.File("list.opml")});
    if (!list.plan) return list.error;
    const auto onFolder = [&](const FolderRow& row) {
      if (row.name == "Stop") stop_.request_stop();
    };
    const ImportSums sums = AddSubscriptions(kit_.db.Get(), *list.plan, clash,
                                             {onFolder, [](auto&) {}}, stop_.get_token());
    return fmt::format("{}/{}/{}{}", sums.added, sums.present, sums.leftOut,
                       sums.isComplete ? "" : "...");
  }
  std::string Import(const std::string& outlines, NameClash clash = NameClash::Rename) {
    files_.Write("list.opml", OpmlDocument(outlines));
    return ImportFile(clash);
  }
  void Empty() { kit_.db.Sql("delete from TB_FOLDER; delete from TB_CHANNEL"); }

  // "folder: title=address home page ...; ...", folders by order, channels as they were added.
  std::string Stored() {
    return kit_.db.Value(
        "select group_concat(line, '; ') from (select folder_name || ':' || ifnull((select "
        "group_concat(' ' || channel_title || '=' || channel_xmllink || channel_htmllink, '') from "
        "(select * from TB_CHANNEL where channel_folderID = folder_id order by channel_id)), '') "
        "line from TB_FOLDER order by folder_order, folder_id)");
  }

  RefreshKit kit_;
  CheckClock clock_;
  TempFolder files_;
  std::stop_source stop_;
};

TEST_F(Opml, TopOutlinesBecomeFoldersAndLoneFeedsShareOneNamedLikeTheList) {
  const std::string x = FeedOutline("x", "http://x/"), y = FeedOutline("y", "HTTPS://y/");
  const std::tuple<std::string, const char*, const char*> cases[] = {
      {x + "<outline text='A'>" + x + y + x + "</outline>" + y, "4/1/0",
       "list: x=http://x/ y=HTTPS://y/; A: x=http://x/ y=HTTPS://y/"},
      {"<outline text=' A ' xmlUrl='http://a/'>" + x + "</outline>", "2/0/0",
       "A: A=http://a/ x=http://x/"},
      {"<outline text=' ' title=' T ' xmlUrl='http://t/' htmlUrl=' h '/><outline "
       "xmlUrl='http://n'/>",
       "2/0/0", "list: T=http://t/h http://n=http://n"},
      {"<outline text='A'><outline>" + x + y + "</outline><outline text='O' xmlUrl='http://o/'>" +
           x + "</outline></outline>",
       "1/0/3", "A: O=http://o/"},
      {"<outline text='A' xmlUrl='file:///etc/passwd'>" + FeedOutline("x", "javascript:alert(1)") +
           FeedOutline("x", "//x/") + "</outline>" + FeedOutline("x", "http:x"),
       "0/0/4", "A:"},
      {FeedOutline("&lt;i>&apos;); drop table TB_CHANNEL; --", "http://x/?a&amp;amp;b=&apos;"),
       "1/0/0", "list: <i>'); drop table TB_CHANNEL; --=http://x/?a&b='"},
      {"<outline text='A'/><outline text='A-1'/><outline text='A'/><outline text='R&amp;amp;D'/>"
       "<outline text='R&amp;D'/>",
       "0/0/0", "A:; A-1:; A-2:; R&D:; R&D-1:"},
  };
  for (const auto& [outlines, sums, stored] : cases) {
    Empty();
    EXPECT_EQ(Import(outlines), sums) << outlines;
    EXPECT_EQ(Stored(), stored);
  }
}

TEST_F(Opml, AMergeUsesTheFoldersThatAreThereAndDoublesNothing) {
  kit_.db.Sql("insert into TB_FOLDER values(1, 'Mine', 4)");
  EXPECT_EQ(Import(NumberedFolder("A", 1)), "1/0/0");
  EXPECT_EQ(Import(NumberedFolder("A", 2) + NumberedFolder("B", 1), NameClash::Merge), "2/1/0");
  EXPECT_EQ(ImportFile(NameClash::Merge), "0/3/0");
  EXPECT_EQ(Import(NumberedFolder("A", 1)), "1/0/0");
  EXPECT_EQ(Stored(),
            "Mine:; A: c1=http://A.example/1 c2=http://A.example/2; B: c1=http://B.example/1; A-1: "
            "c1=http://A.example/1");
}

TEST_F(Opml, AnExportHasTheStoredListInTheOrderOfTheTreeAndComesBackTheSame) {
  Store& store = kit_.db.Get();
  kit_.db.Clock().Set(NoonOf(2026, 3, 4));
  kit_.db.Sql(
      "insert into TB_FOLDER values(1, '" + Korean("똠") +
      "', 2), (2, 'R&D', 1); insert into "
      "TB_CHANNEL(channel_title, channel_xmllink, channel_folderID, channel_order) values ('b', "
      "'http://b/', 1, 2), ('&amp;', 'http://a/?x&y', 1, 1), ('lost', 'http://l/', 99, 0)");
  ASSERT_FALSE(WriteOpml(store, files_.File("list.opml"), StoredSubscriptions(store).value()));
  EXPECT_EQ(
      files_.Read("list.opml"),
      R"(<?xml version="1.0" encoding="EUC-KR"?><opml version="1.0"><head><title>Skyfold OPML)"
      R"(</title><dateCreated>2026-03-04T12:00:00</dateCreated><ownerName>Skyfold</ownerName>)"
      R"(</head><body><outline text="R&amp;D"></outline><outline text=")" +
          Korean("똠") +
          R"("><outline type="rss" text="&amp;amp;" title="&amp;amp;" xmlUrl="http://a/?x&amp;y"/>)"
          R"(<outline type="rss" text="b" title="b" xmlUrl="http://b/"/></outline></body></opml>)");
  Empty();
  EXPECT_EQ(ImportFile(), "2/0/0");
  EXPECT_EQ(Stored(), Korean("R&D:; 똠: &=http://a/?x&y b=http://b/"));
  Empty();
  EXPECT_EQ(Import("<outline text='똠'/>"), "0/0/0");
  EXPECT_EQ(Stored(), Korean("똠:")) << "from UTF-8";
  kit_.db.Sql("drop table TB_CHANNEL");
  EXPECT_FALSE(StoredSubscriptions(store)) << "rather than half of the list";
  EXPECT_EQ(BuildOpml({}, CodePage::Utf8(), "").substr(30, 5), "UTF-8");
}

TEST_F(Opml, WhatIsNoListIsRefusedWithItsReason) {
  std::string bomb = "<!DOCTYPE opml [<!ENTITY e0 'boom'>";
  for (int i = 1; i < 30; ++i) bomb += fmt::format("<!ENTITY e{0} '&e{1};&e{1};&e{1};'>", i, i - 1);
  std::string many;
  for (int i = 0; i < 100'000; ++i) many += "<outline/>";
  const std::pair<std::string, const char*> cases[] = {
      {"", "it cannot be read, or is not well-formed XML"},
      {"<rss version='2.0'><channel/></rss>", "this is not OPML"},
      {OpmlDocument(many), ""},
      {OpmlDocument(many + "<outline/>"), "the list is too long"},
      {OpmlDocument("<outline text='&e29;'/>", bomb + "]>"), "the list is too long"}};
  for (const auto& [bytes, error] : cases) EXPECT_EQ(ErrorIn(bytes), error) << bytes.substr(0, 99);
  const std::string whole = OpmlDocument(NumberedFolder("A", 3));
  for (std::size_t size = 0; size < whole.size(); size += 7)
    EXPECT_NE(ErrorIn(whole.substr(0, size)), "") << "a file that is being written";
  std::filesystem::resize_file(files_.Write("long", ""), 65 << 20);
  EXPECT_EQ(Read({.place = files_.File("long")}).error, "the file is too long");
  EXPECT_EQ(Read({.place = files_.File("absent")}).error, "No such file or directory");
}

TEST_F(Opml, AnAddressIsDownloadedAsAFeedIs) {
  kit_.server.Serve("/lists/my%20blogs.opml?v=2", OpmlDocument(FeedOutline("x", "http://x/")));
  kit_.server.Hang("/hang");
  const ReadList read = Read({kit_.server.Url("/lists/my%20blogs.opml?v=2#top"), true});
  EXPECT_EQ(read.plan.value().folders.at(0).name, "my blogs");
  EXPECT_EQ(ErrorAt("file://" + files_.Write("own", OpmlDocument(""))), "");
  EXPECT_EQ(ErrorAt(kit_.server.Url("/absent")), "The requested URL returned error: 404");
  clock_.RunOut();
  EXPECT_EQ(ErrorAt(kit_.server.Url("/hang")), "it took too long");
  EXPECT_EQ(kit_.WorkFiles(), std::vector<std::string>());
}

TEST_F(Opml, AStopOrAFailureEndsItWhatWasAddedStaysAndTheRestIsCounted) {
  kit_.db.Sql(
      "create trigger a before insert on TB_CHANNEL when new.channel_xmllink like '%F.example/120' "
      "begin select raise(abort, 'full'); end; create trigger b before insert on TB_FOLDER when "
      "new.folder_name = 'N' begin select raise(abort, 'no'); end");
  EXPECT_EQ(Import(NumberedFolder("F", 130) + NumberedFolder("B", 3)), "100/0/33...");
  EXPECT_EQ(Import(NumberedFolder("N", 2) + NumberedFolder("B", 3)), "0/0/5...");
  EXPECT_EQ(kit_.db.Reports(), (std::vector<std::string>{"full", "no"}));
  EXPECT_EQ(Import(NumberedFolder("A", 2) + NumberedFolder("Stop", 103)), "2/0/103...");
  EXPECT_EQ(kit_.db.Count("TB_CHANNEL") + kit_.db.Count("TB_FOLDER"), 105);
}

}  // namespace feedloom
