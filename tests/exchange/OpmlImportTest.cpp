// Imports on real files, a real server and a real database.
#include <gtest/gtest.h>

#include "exchange/ListDocuments.h"
#include "exchange/OpmlImport.h"
#include "ingest/CheckClock.h"
#include "ingest/IngestKit.h"
#include "store/Channels.h"
#include "store/Folders.h"

namespace feedloom {
namespace {

using namespace std::chrono_literals;

class OpmlImport : public testing::Test {
 protected:
  ReadList Read(const std::string& bytes, const std::string& name = "list.opml") {
    return ReadSubscriptions(*kit_.Services(), {.place = files_.Write(name, bytes)}, {});
  }

  ReadList ReadAddress(const std::string& address) {
    return ReadSubscriptions(*kit_.Services(clock_), {.place = address, .isAddress = true}, {});
  }

  // What a list brings to the store: "added/present/left out", or the error.
  std::string Import(const std::string& outlines, NameClash clash = NameClash::Rename) {
    const ReadList list = Read(OpmlDocument(outlines));
    if (!list.plan) return list.error;
    const ImportSums sums = Add(*list.plan, clash);
    return std::to_string(sums.added) + "/" + std::to_string(sums.present) + "/" +
           std::to_string(sums.leftOut);
  }

  ImportSums Add(const ImportPlan& plan, NameClash clash = NameClash::Rename) {
    return AddSubscriptions(
        kit_.db.Get(), plan, clash,
        {.onFolder = [this](const FolderRow& folder) { folders_.push_back(folder); },
         .onChannel =
             [this](const ChannelRow& channel) {
               channels_.push_back(channel);
               if (static_cast<int>(channels_.size()) == stopAfter_) stop_.request_stop();
             }},
        stop_.get_token());
  }

  IngestKit kit_;
  CheckClock clock_;
  TempFolder files_;
  std::stop_source stop_;
  int stopAfter_ = -1;  // so many channels
  std::vector<FolderRow> folders_;
  std::vector<ChannelRow> channels_;
};

TEST_F(OpmlImport, PutsFoldersAndChannelsIntoTheStoreAndTellsEach) {
  kit_.db.Sql("insert into TB_FOLDER(folder_name, folder_order) values ('Mine', 4)");
  EXPECT_EQ(Import("<outline text='A &amp; B'>" + FeedOutline("x", "http://x/?a=1&amp;b") +
                   FeedOutline("y", "http://y/") + "</outline>" + FeedOutline("z", "http://z/")),
            "3/0/0");
  EXPECT_EQ(StoredList(kit_.db), "Mine:; A & B: x=http://x/?a=1&b y=http://y/; list: z=http://z/");
  ASSERT_EQ(folders_.size(), 2u);
  EXPECT_EQ(folders_[0].name, "A & B");
  EXPECT_EQ(folders_[0].order, 5);
  ASSERT_EQ(channels_.size(), 3u);
  EXPECT_EQ(channels_[0].xmlLink, "http://x/?a=1&b");
  EXPECT_EQ(channels_[0].folderId, folders_[0].id);
  EXPECT_EQ(kit_.db.Count("TB_CHANNEL where channel_type = 'rss' and channel_order = 0"), 3);
}

TEST_F(OpmlImport, AFolderWhoseNameIsTakenGetsTheFirstFreeNumber) {
  for (const char* name : {"News", "News-2"}) AddFolder(kit_.db.Get(), name, 1);
  EXPECT_EQ(Import("<outline text='News'/><outline text='News'/><outline text='News-1'/>"
                   "<outline text='R&amp;amp;D'/><outline text='R&amp;D'/>"),
            "0/0/0");
  EXPECT_EQ(StoredList(kit_.db), "News:; News-2:; News-1:; News-3:; News-1-1:; R&D:; R&D-1:");
}

TEST_F(OpmlImport, OneAddressIsOneChannelOfAFolderAndMayBeInAnother) {
  EXPECT_EQ(Import("<outline text='A'>" + FeedOutline("x", "http://x/") +
                   FeedOutline("again", "http://x/") + "</outline><outline text='B'>" +
                   FeedOutline("x", "http://x/") + "</outline>"),
            "2/1/0");
  EXPECT_EQ(StoredList(kit_.db), "A: x=http://x/; B: x=http://x/");
}

TEST_F(OpmlImport, AMergeUsesTheFoldersThatAreThereAndDoublesNothing) {
  const std::string list = NumberedFolder("A", 2) + NumberedFolder("B", 1);
  EXPECT_EQ(Import(NumberedFolder("A", 1)), "1/0/0");
  EXPECT_EQ(Import(list, NameClash::Merge), "2/1/0");
  EXPECT_EQ(Import(list, NameClash::Merge), "0/3/0");
  EXPECT_EQ(StoredList(kit_.db),
            "A: c1=http://A.example/1 c2=http://A.example/2; B: c1=http://B.example/1");
  EXPECT_EQ(channels_.size(), 3u);
}

TEST_F(OpmlImport, ReadsListsInAllEncodingsThatTheyDeclare) {
  const std::string korean = "<outline text='뉴스'/>";
  std::string utf16 = "\xFF\xFE";
  for (const char c : OpmlDocument("<outline text='wide'/>", "<?xml version='1.0'?>")) {
    utf16 += {c, '\0'};
  }
  struct Case {
    std::string bytes;
    std::string name;
  };
  for (const auto& [bytes, name] :
       {Case{OpmlDocument(korean), Korean("뉴스")},
        Case{"\xEF\xBB\xBF" + OpmlDocument(korean), Korean("뉴스")},
        Case{OpmlDocument(Korean(korean), "<?xml version='1.0' encoding='EUC-KR'?>"),
             Korean("뉴스")},
        Case{OpmlDocument("<outline text='caf\xE9'/>",
                          "<?xml version='1.0' encoding='ISO-8859-1'?>"),
             "caf?"},
        Case{utf16, "wide"}}) {
    const ReadList list = Read(bytes);
    ASSERT_TRUE(list.plan) << list.error;
    EXPECT_EQ(list.plan->folders.at(0).name, name);
  }
}

TEST_F(OpmlImport, WhatIsNoListIsRefusedWithItsReason) {
  const std::string malformed = "it cannot be read, or is not well-formed XML";
  EXPECT_EQ(Read("").error, malformed);
  EXPECT_EQ(Read(OpmlDocument("<outline text='\"'>")).error, malformed);
  EXPECT_EQ(Read("<html/>").error, "this is not OPML");
  EXPECT_EQ(Read("<rss version='2.0'><channel/></rss>").error, "this is not OPML");
  EXPECT_EQ(ReadSubscriptions(*kit_.Services(), {.place = files_.File("absent")}, {}).error,
            "No such file or directory");
  EXPECT_EQ(ReadSubscriptions(*kit_.Services(), {.place = files_.Path()}, {}).error,
            "Is a directory");
}

TEST_F(OpmlImport, AnAddressIsDownloadedAsAFeedIs) {
  kit_.server.Serve("/lists/blogs.opml", OpmlDocument(FeedOutline("x", "http://x/")));
  kit_.server.Redirect("/moved", kit_.server.Url("/lists/blogs.opml"));
  kit_.server.Serve("/page", "<html/>");
  EXPECT_EQ(ReadAddress(kit_.server.Url("/lists/blogs.opml")).plan.value().folders.at(0).name,
            "blogs");
  EXPECT_TRUE(ReadAddress(kit_.server.Url("/moved")).plan);
  EXPECT_EQ(ReadAddress(kit_.server.Url("/page")).error, "this is not OPML");
  const std::string file = files_.Write("own.opml", OpmlDocument(FeedOutline("x", "http://x/")));
  EXPECT_TRUE(ReadAddress("file://" + file).plan) << "what the user types may be a file";
  EXPECT_EQ(ReadAddress(kit_.server.Url("/absent")).error, "The requested URL returned error: 404");
  kit_.server.Hang("/hang");
  clock_.RunOut();
  EXPECT_EQ(ReadAddress(kit_.server.Url("/hang")).error, "it took too long");
  EXPECT_EQ(kit_.WorkFiles(), std::vector<std::string>());
}

TEST_F(OpmlImport, AStopEndsItAndWhatWasAddedStays) {
  stopAfter_ = 2;
  EXPECT_EQ(Import(NumberedFolder("A", 150) + NumberedFolder("B", 3)), "100/0/53");
  EXPECT_EQ(kit_.db.Count("TB_CHANNEL"), 100);
  EXPECT_EQ(kit_.db.Count("TB_FOLDER"), 1);
}

TEST_F(OpmlImport, TheFirstFailureOfTheStoreEndsItAndTheRestIsCounted) {
  kit_.db.Sql(
      "create trigger full before insert on TB_CHANNEL when new.channel_title = 'c120' begin "
      "select "
      "raise(abort, 'full'); end");
  EXPECT_EQ(Import(NumberedFolder("A", 130) + NumberedFolder("B", 3)), "100/0/33");
  EXPECT_EQ(kit_.db.Reports(), std::vector<std::string>{"full"});
  EXPECT_EQ(kit_.db.Count("TB_CHANNEL"), 100);
}

// Lists that somebody wrote to do harm.

TEST_F(OpmlImport, MarkupAndQuotesInNamesArriveAsTheyAre) {
  EXPECT_EQ(
      Import("<outline text=\"&lt;script>alert('1')&lt;/script>\">" +
             FeedOutline("&apos;); drop table TB_CHANNEL; --", "http://x/&apos;") + "</outline>"),
      "1/0/0");
  EXPECT_EQ(StoredList(kit_.db),
            "<script>alert('1')</script>: '); drop table TB_CHANNEL; --=http://x/'");
}

TEST_F(OpmlImport, AnAddressOfAHundredKilobytesIsKeptWhole) {
  const std::string address = "http://x.example/" + std::string(100 << 10, 'a');
  EXPECT_EQ(Import(FeedOutline("x", address)), "1/0/0");
  EXPECT_EQ(channels_.at(0).xmlLink, address);
}

TEST_F(OpmlImport, AMillionOutlinesAndEntityBombsAddNothing) {
  std::string outlines;
  for (int i = 0; i < 1'000'000; ++i) outlines += "<outline text='a'/>";
  EXPECT_EQ(Read(OpmlDocument(outlines)).error, "the list is too long");
  EXPECT_EQ(Read(OpmlDocument("<outline text='A'>" + outlines + "</outline>")).error,
            "the list is too long");
  std::string bomb = "<!DOCTYPE opml [<!ENTITY e0 'boom'>";
  for (int i = 1; i < 30; ++i) {
    const std::string before = "&e" + std::to_string(i - 1) + ";";
    bomb += "<!ENTITY e" + std::to_string(i) + " '" + before + before + before + "'>";
  }
  EXPECT_FALSE(Read(OpmlDocument("<outline text='&e29;'/>", bomb + "]>")).plan);
}

}  // namespace
}  // namespace feedloom
