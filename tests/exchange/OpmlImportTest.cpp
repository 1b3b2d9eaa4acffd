// Imports on real files, a real server and a real database.
#include <fmt/core.h>
#include <gtest/gtest.h>

#include "exchange/ListDocuments.h"
#include "exchange/OpmlExport.h"
#include "exchange/OpmlImport.h"
#include "ingest/CheckClock.h"
#include "ingest/IngestKit.h"
#include "store/Folders.h"

namespace feedloom {
namespace {

class OpmlImport : public testing::Test {
 protected:
  ReadList Read(const ListSource& source) {
    return ReadSubscriptions(*kit_.Services(clock_), source, {});
  }
  ReadList ReadBytes(const std::string& bytes) {
    return Read({.place = files_.Write("list.opml", bytes)});
  }
  std::string ErrorAt(const std::string& path) { return Read({kit_.server.Url(path), true}).error; }

  // What a list brings to the store: "added/present/left out", or the error.
  std::string Import(const std::string& outlines, NameClash clash = NameClash::Rename) {
    const ReadList list = ReadBytes(OpmlDocument(outlines));
    if (!list.plan) return list.error;
    const ImportSums sums = AddSubscriptions(
        kit_.db.Get(), *list.plan, clash,
        {.onFolder = [&](const FolderRow& f) { news_ += fmt::format("{}({}) ", f.name, f.order); },
         .onChannel =
             [&](const ChannelRow& c) {
               news_ += fmt::format("{}={} ", c.folderId, c.xmlLink);
               if (c.title == stopAfter_) stop_.request_stop();
             }},
        stop_.get_token());
    return fmt::format("{}/{}/{}{}", sums.added, sums.present, sums.leftOut,
                       sums.isComplete ? "" : "...");
  }

  IngestKit kit_;
  CheckClock clock_;
  TempFolder files_;
  std::stop_source stop_;
  std::string stopAfter_ = "none";  // the channel of this title
  std::string news_;
};

TEST_F(OpmlImport, PutsFoldersAndChannelsIntoTheStoreAndTellsEach) {
  AddFolder(kit_.db.Get(), "Mine", 4);
  EXPECT_EQ(Import("<outline text='A &amp; B'>" + FeedOutline("x", "http://x/?a=1&amp;b") +
                   FeedOutline("&lt;i>&apos;); drop table TB_CHANNEL; --", "http://y/&apos;") +
                   FeedOutline("again", "http://y/&apos;") + "</outline>" +
                   FeedOutline("z", "http://x/?a=1&amp;b")),
            "3/1/0");
  const std::string stored =
      "Mine:; A & B: x=http://x/?a=1&b <i>'); drop table TB_CHANNEL; --=http://y/'; list: "
      "z=http://x/?a=1&b";
  EXPECT_EQ(StoredList(kit_.db), stored);
  EXPECT_EQ(news_, "A & B(5) 2=http://x/?a=1&b 2=http://y/' list(6) 3=http://x/?a=1&b ");
  EXPECT_EQ(kit_.db.Count("TB_CHANNEL where channel_type = 'rss' and channel_order = 0"), 3);
}

TEST_F(OpmlImport, AFolderWhoseNameIsTakenGetsTheFirstFreeNumber) {
  for (const char* name : {"News", "News-2"}) AddFolder(kit_.db.Get(), name, 1);
  EXPECT_EQ(Import("<outline text='News'/><outline text='News'/><outline text='News-1'/>"
                   "<outline text='R&amp;amp;D'/><outline text='R&amp;D'/>"),
            "0/0/0");
  EXPECT_EQ(StoredList(kit_.db), "News:; News-2:; News-1:; News-3:; News-1-1:; R&D:; R&D-1:");
}

TEST_F(OpmlImport, AMergeUsesTheFoldersThatAreThereAndDoublesNothing) {
  const std::string list = NumberedFolder("A", 2) + NumberedFolder("B", 1);
  EXPECT_EQ(Import(NumberedFolder("A", 1)), "1/0/0");
  EXPECT_EQ(Import(list, NameClash::Merge), "2/1/0");
  EXPECT_EQ(Import(list, NameClash::Merge), "0/3/0");
  EXPECT_EQ(StoredList(kit_.db),
            "A: c1=http://A.example/1 c2=http://A.example/2; B: c1=http://B.example/1");
}

TEST_F(OpmlImport, AnExportedListComesBackTheSame) {
  EXPECT_EQ(Import("<outline text='빈 R&amp;D (2)'/>" + NumberedFolder("하나 &amp; 둘", 3)),
            "3/0/0");
  Store& store = kit_.db.Get();
  const std::string before = StoredList(kit_.db);
  ASSERT_FALSE(WriteOpml(store, files_.File("out"), StoredSubscriptions(store).value()));
  kit_.db.Sql("delete from TB_FOLDER; delete from TB_CHANNEL");
  const ReadList list = Read({.place = files_.File("out")});
  AddSubscriptions(store, list.plan.value(), NameClash::Rename, {[](auto&) {}, [](auto&) {}}, {});
  EXPECT_EQ(StoredList(kit_.db), before);
}

TEST_F(OpmlImport, ReadsListsInAllEncodingsThatTheyDeclare) {
  const std::string korean = "<outline text='뉴스'/>";
  std::string wide = "\xFF\xFE";
  for (const char c : OpmlDocument("<outline text='wide'/>")) wide += {c, '\0'};
  const std::pair<std::string, std::string> cases[] = {
      {OpmlDocument(korean), Korean("뉴스")},
      {"\xEF\xBB\xBF" + OpmlDocument(korean), Korean("뉴스")},
      {OpmlDocument(Korean(korean), "<?xml version='1.0' encoding='EUC-KR'?>"), Korean("뉴스")},
      {OpmlDocument("<outline text='\xE9'/>", "<?xml version='1.0' encoding='ISO-8859-1'?>"), "?"},
      {wide, "wide"}};
  for (const auto& [bytes, name] : cases)
    EXPECT_EQ(ReadBytes(bytes).plan.value().folders.at(0).name, name);
}

TEST_F(OpmlImport, WhatIsNoListIsRefusedWithItsReason) {
  std::string outlines = "<outline text='a'/>";
  for (int i = 0; i < 17; ++i) outlines += outlines;
  std::string bomb = "<!DOCTYPE opml [<!ENTITY e0 'boom'>";
  for (int i = 1; i < 30; ++i) bomb += fmt::format("<!ENTITY e{0} '&e{1};&e{1};&e{1};'>", i, i - 1);
  for (const std::string& bytes : {std::string(), OpmlDocument("<outline text='\"'>")}) {
    EXPECT_EQ(ReadBytes(bytes).error, "it cannot be read, or is not well-formed XML");
  }
  for (const std::string bytes : {"<html/>", "<rss version='2.0'><channel/></rss>"}) {
    EXPECT_EQ(ReadBytes(bytes).error, "this is not OPML");
  }
  for (const std::string& bytes :
       {OpmlDocument(outlines), OpmlDocument("<outline text='A'>" + outlines + "</outline>"),
        OpmlDocument("<outline text='&e29;'/>", bomb + "]>")}) {
    EXPECT_EQ(ReadBytes(bytes).error, "the list is too long");
  }
  const std::string whole = OpmlDocument(NumberedFolder("A", 3));
  for (std::size_t size = 0; size < whole.size(); size += 7) {
    EXPECT_FALSE(ReadBytes(whole.substr(0, size)).plan) << "a file that is being written";
  }
  std::filesystem::resize_file(files_.Write("long", ""), 65 << 20);
  EXPECT_EQ(Read({.place = files_.File("long")}).error, "the file is too long");
  EXPECT_EQ(Read({.place = files_.File("absent")}).error, "No such file or directory");
  EXPECT_EQ(Read({.place = files_.Path()}).error, "Is a directory");
}

TEST_F(OpmlImport, AnAddressIsDownloadedAsAFeedIs) {
  const std::string longest = "http://x.example/" + std::string(100 << 10, 'a');
  const std::string list = OpmlDocument(FeedOutline("x", longest));
  kit_.server.Serve("/lists/blogs.opml", list);
  kit_.server.Redirect("/moved", kit_.server.Url("/lists/blogs.opml"));
  kit_.server.Serve("/page", "<html/>");
  kit_.server.Hang("/hang");
  const ReadList read = Read({kit_.server.Url("/lists/blogs.opml"), true});
  EXPECT_EQ(read.plan.value().folders.at(0).name, "blogs");
  EXPECT_EQ(read.plan->folders[0].channels.at(0).xmlLink, longest);
  EXPECT_EQ(ErrorAt("/moved"), "");
  EXPECT_EQ(Read({"file://" + files_.Write("own", list), true}).error, "");
  EXPECT_EQ(ErrorAt("/page"), "this is not OPML");
  EXPECT_EQ(ErrorAt("/absent"), "The requested URL returned error: 404");
  clock_.RunOut();
  EXPECT_EQ(ErrorAt("/hang"), "it took too long");
  EXPECT_EQ(kit_.WorkFiles(), std::vector<std::string>());
}

TEST_F(OpmlImport, AStopOrAFailureEndsItWhatWasAddedStaysAndTheRestIsCounted) {
  kit_.db.Sql(
      "create trigger full before insert on TB_CHANNEL when new.channel_xmllink like "
      "'http://F.example/120' begin select raise(abort, 'full'); end");
  EXPECT_EQ(Import(NumberedFolder("F", 130) + NumberedFolder("B", 3)), "100/0/33...");
  EXPECT_EQ(kit_.db.Reports(), std::vector<std::string>{"full"});
  stopAfter_ = "c2";
  EXPECT_EQ(Import(NumberedFolder("A", 150) + NumberedFolder("B", 3)), "100/0/53...");
  EXPECT_EQ(kit_.db.Count("TB_CHANNEL") + kit_.db.Count("TB_FOLDER"), 202);
  stop_ = {};
  kit_.db.Sql(
      "create trigger no before insert on TB_FOLDER when new.folder_name = 'N' begin select "
      "raise(abort, 'no'); end");
  EXPECT_EQ(Import(NumberedFolder("N", 2) + NumberedFolder("B", 3)), "0/0/5...");
}

}  // namespace
}  // namespace feedloom
