// Imports and exports on real files, a real server and a real database.
#include <fmt/core.h>
#include <fmt/ranges.h>

#include "exchange/Missing.h"
#include "exchange/OpmlExport.h"
#include "exchange/OpmlImport.h"
#include "exchange/OpmlText.h"
#include "kit/FeedDocuments.h"
#include "refresh/RefreshKit.h"

namespace feedloom {

struct Opml : testing::Test {
  ReadList Read(const ListSource& source) {
    FetchServices services = *kit_.Services(clock_);
    services.isLenient = isLenient_;
    return ReadSubscriptions(services, source, {});
  }
  // Writes the stored list to "list.opml": the names that cannot be read, or "" when all can.
  std::string Export() {
    Store& store = kit_.db.Get();
    const OpmlExport result =
        ExportSubscriptions(store, StoredSubscriptions(store).value(), isLenient_);
    files_.Write("list.opml", result.opml);
    if (result.check.readsBack) return "";
    return fmt::format("{}: {}", result.check.count, fmt::join(result.check.first, " "));
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
  bool isLenient_ = false;
};

TEST_F(Opml, TopOutlinesBecomeFoldersAndLoneFeedsShareOneNamedLikeTheList) {
  const std::string x = FeedOutline("x", "http://x/"), y = FeedOutline("y", "HTTPS://y/");
  const std::tuple<std::string, const char*, const char*> cases[] = {
      {x + "<outline text='A'>" + x + y + x + "</outline>" + y, "4/1/0",
       "list: x=http://x/ y=HTTPS://y/; A: x=http://x/ y=HTTPS://y/"},
      {"<outline text=' A ' xmlUrl='http://a/'>" + x + "</outline>", "2/0/0",
       "A: A=http://a/ x=http://x/"},
      {"<outline text=' ' title=' T ' xmlUrl='http://t/' htmlUrl=' h '/><outline "
       "xmlUrl='http://u:p@n'/>",
       "2/0/0", "list: T=http://t/h http://n=http://u:p@n"},
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
  const std::string elsewhere = FeedOutline("moved", "HTTP://a.EXAMPLE/1") +
                                FeedOutline("new", "http://a.example/P") +
                                FeedOutline("too", "http://U@a.example/p");
  EXPECT_EQ(Import("<outline text='C'>" + elsewhere + "</outline>" + NumberedFolder("Mine", 0) +
                       "<outline text='D'>" + FeedOutline("b", "http://b.example/1") + "</outline>",
                   NameClash::Merge),
            "2/2/0");
  EXPECT_TRUE(Stored().ends_with("C: new=http://a.example/P too=http://U@a.example/p")) << Stored();
}

TEST_F(Opml, WhatIsWrittenOtherwiseIsReadWhereTheHostAsksForItAndNamedWhereItIsLeftOut) {
  using enum LeftOutReason;
  const std::string x = FeedOutline("x", "http://x/");
  const std::tuple<std::string, const char*, const char*, std::vector<LeftOutEntry>> cases[] = {
      {"<outline text='A'><outline text='B'>" + x + "<outline text='C'>" + x +
           "</outline></outline></outline><outline text='D'><outline text='E'>" + x + "</outline>" +
           x + "<outline text='F' xmlUrl='http://f/'>" + x + "</outline></outline>",
       "A:; D: x=http://x/ F=http://f/",
       "A / B: x=http://x/; A / B / C: x=http://x/; D: x=http://x/; D / E: x=http://x/; D / F: "
       "F=http://f/ x=http://x/",
       {{"x", TooDeep}, {"x", TooDeep}, {"x", TooDeep}, {"x", TooDeep}}},
      {"<outline Text='A'><outline TITLE='l' xmlurl='http://l/'/><outline text='u' "
       "XMLURL='http://u/' url='http://no/' type='link'/></outline>",
       "list:",
       "A: l=http://l/ u=http://u/",
       {{"", NoAddress}, {"u", NoAddress}}},
      {"<outline text='A'><outline text='u' type='rss' url=' feed://u/한 '/><outline text='w' "
       "type='LINK' url='http://w/'/><outline xmlUrl='FEED:https://f/'/><outline "
       "xmlUrl='feed:file:///x'/></outline>",
       "A: u=feed://u/%ED%95%9C FEED:https://f/=FEED:https://f/",
       "A: u=feed://u/%ED%95%9C FEED:https://f/=FEED:https://f/",
       {{"w", NoAddress}, {"feed:file:///x", NotOfTheWeb}}},
  };
  for (const auto& [outlines, strict, lenient, named] : cases) {
    files_.Write("list.opml", OpmlDocument(outlines));
    EXPECT_EQ(Read({.place = files_.File("list.opml")}).plan.value().named, named) << outlines;
    for (const char* stored : {strict, lenient}) {
      Empty();
      ImportFile();
      EXPECT_EQ(Stored().substr(0, std::string(stored).size()), stored);
      isLenient_ = !isLenient_;
    }
  }
  isLenient_ = true;
  EXPECT_EQ(Import("<outline text='Q&A'>" + x + "</outline>"), "1/0/0") << "mended";
  std::string deep = x;
  for (int i = 0; i < 40; ++i) deep = "<outline text='0123456789'>" + deep + "</outline>";
  EXPECT_EQ(ErrorIn(OpmlDocument(deep)), "");
  EXPECT_LT(Read({.place = files_.File("list.opml")}).plan.value().folders.at(0).name.size(), 210)
      << "names of names do not fill the memory";
}

TEST_F(Opml, AnExportHasTheStoredListInTheOrderOfTheTreeAndComesBackTheSame) {
  Store& store = kit_.db.Get();
  kit_.db.Clock().Set(NoonOf(2026, 3, 4));
  kit_.db.Sql(
      "insert into TB_FOLDER values(1, '" + Korean("똠") +
      "', 2), (2, 'R&D', 1); insert into "
      "TB_CHANNEL(channel_title, channel_xmllink, channel_folderID, channel_order) values ('b', "
      "'http://b/', 1, 2), ('&amp;', 'http://a/?x&y', 1, 1), ('lost', 'http://l/', 99, 0)");
  EXPECT_EQ(Export(), "");
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
  EXPECT_EQ(BuildOpml({}, CodePage::Utf8(), "", {}).substr(30, 5), "UTF-8");
}

TEST_F(Opml, AnExportThatCannotBeReadAgainSaysByWhichNamesAndALenientOneCanBe) {
  kit_.db.Sql(
      "insert into TB_FOLDER values(1, 'a<b', 1), (2, 'ok', 2); insert into "
      "TB_CHANNEL(channel_title, channel_xmllink, channel_folderID, channel_order) values "
      "('\"q\"', "
      "'http://q/', 2, 1), ('plain', 'http://p/?\"', 2, 2), ('t' || char(9, 10) || 'u', "
      "'http://t/', 2, 3), ('c' || char(1), 'http://c/', 2, 4), ('mine', 'file:///s', 2, 5)");
  EXPECT_EQ(Export(), "4: a<b \"q\" plain c\x01");
  EXPECT_EQ(Import(NumberedFolder("many", 12)), "12/0/0");
  kit_.db.Sql("update TB_CHANNEL set channel_title = '<'");
  EXPECT_EQ(Export(), "18: a<b < < < < < < < < <");
  kit_.db.Sql("delete from TB_CHANNEL where channel_folderID > 2");
  kit_.db.Sql("update TB_CHANNEL set channel_title = channel_id || ' <\"' || char(9, 1)");
  isLenient_ = true;
  EXPECT_EQ(Export(), "");
  Empty();
  EXPECT_EQ(ImportFile(), "4/0/0");
  EXPECT_EQ(Stored(),
            "a<b:; ok: 1 <\"=http://q/ 2 <\"=http://p/?\" 3 <\"=http://t/ 4 <\"=http://c/; many:")
      << "without the file of this machine";
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

TEST_F(Opml, AFeedInPlaceOfAListIsNamedByItsAddress) {
  const std::string json =
      R"({"version":"https://jsonfeed.org/version/1","home_page_url":"http://h/","items":[]})";
  const std::string atom = "<feed><link rel='self' href='http://s/'/></feed>";
  for (isLenient_ = false;; isLenient_ = true) {
    EXPECT_EQ(Read({.place = files_.Write("feed", json)}).feed, isLenient_ ? "http://h/" : "");
    EXPECT_EQ(Read({.place = files_.Write("feed", atom)}).feed, "http://s/");
    EXPECT_EQ(Read({.place = files_.Write("feed", R"({"home_page_url":"http://h/"})")}).feed, "");
    if (isLenient_) break;
  }
}

}  // namespace feedloom
