// The importer on its thread, with the test as its owner.
#include <fmt/core.h>
#include <gtest/gtest.h>

#include "exchange/ListDocuments.h"
#include "exchange/OpmlImporter.h"
#include "ingest/CheckClock.h"
#include "ingest/IngestKit.h"
#include "ingest/RefreshEngine.h"
#include "kit/FeedDocuments.h"
#include "kit/Inbox.h"

namespace feedloom {
namespace {

class Importer : public testing::Test {
 protected:
  void Start(const ListSource& source) {
    importer_->Start(source, NameClash::Rename,
                     {.news = {.onFolder = [this](const auto& row) { news_ += row.name + ": "; },
                               .onChannel = [this](const auto& row) { news_ += row.title + " "; }},
                      .onEnd = [this](const ImportEnd& end) {
                        news_ +=
                            (end.sums ? "=" + std::to_string(end.sums->added) : end.error) + " ";
                        ++ends_;
                      }});
  }
  void StartDocument(const std::string& name, const std::string& bytes) {
    Start({.place = files_.Write(name, bytes)});
  }
  [[nodiscard]] bool WaitForEnds(int count) {
    return inbox_.DoUntil([&] { return ends_ == count; });
  }

  IngestKit kit_;
  CheckClock clock_;
  TempFolder files_;
  Inbox inbox_;
  std::string news_;
  int ends_ = 0;
  std::optional<OpmlImporter> importer_{
      std::in_place, kit_.Services(clock_),
      [this](std::function<void()> work) { inbox_.Put(std::move(work)); }};
};

TEST_F(Importer, TellsEachRowAndTheEndOneImportAfterTheOther) {
  StartDocument("a", OpmlDocument(NumberedFolder("A", 2)));
  StartDocument("no", "<html/>");
  StartDocument("b", OpmlDocument(NumberedFolder("A", 1)));
  ASSERT_TRUE(WaitForEnds(3));
  EXPECT_EQ(news_, "A: c1 c2 =2 this is not OPML A-1: c1 =1 ");
}

// The server never answers, and the clock of the time limit stands still.
TEST_F(Importer, ItsEndBreaksImportsOff) {
  kit_.server.Hang("/hang");
  StartDocument("a", OpmlDocument(NumberedFolder("A", 20'000)));
  Start({.place = kit_.server.Url("/hang"), .isAddress = true});
  ASSERT_TRUE(inbox_.WaitForWork());
  importer_.reset();
  EXPECT_LT(kit_.db.Count("TB_CHANNEL"), 20'000);
  inbox_.DoAll();
  EXPECT_EQ(news_, "");
  EXPECT_EQ(kit_.WorkFiles(), std::vector<std::string>());
}

TEST_F(Importer, AnImportAndARefreshLoseNothingOfEachOther) {
  RecordingTarget frame;
  RecordingTarget host;
  RefreshEngine engine(kit_.Services(), frame, host);
  for (int i = 1; i <= 5; ++i) {
    const std::string path = "/" + std::to_string(i);
    kit_.server.Serve(path, NumberedRss(path, "http://posts" + path + "/", 20));
    engine.Enqueue({.channelId = kit_.db.AddChannelWithPosts(99, path, 0),
                    .folderId = 99,
                    .title = path,
                    .xmlLink = kit_.server.Url(path),
                    .htmlLink = {}});
  }
  engine.StartRefresh();
  StartDocument("a", OpmlDocument(NumberedFolder("A", 60)));
  ASSERT_TRUE(WaitForEnds(1));
  ASSERT_TRUE(
      host.WaitFor([](const SentMessage& sent) { return sent.message == kMessageRefreshEnded; },
                   std::chrono::seconds(20), 1));
  EXPECT_EQ(kit_.db.Reports(), std::vector<std::string>());
  EXPECT_EQ(kit_.db.Count("TB_CHANNEL") + kit_.db.Count("TB_POST"), 165);
}

}  // namespace
}  // namespace feedloom
