// The importer on its thread, with the test as its owner.
#include <gtest/gtest.h>

#include <fstream>

#include "exchange/ListDocuments.h"
#include "exchange/OpmlImporter.h"
#include "ingest/CheckClock.h"
#include "ingest/IngestKit.h"
#include "ingest/RefreshEngine.h"
#include "kit/FeedDocuments.h"
#include "kit/Inbox.h"

namespace feedloom {
namespace {

using namespace std::chrono_literals;

class Importer : public testing::Test {
 protected:
  Importer() {
    importer_.emplace(kit_.Services(clock_),
                      [this](std::function<void()> work) { inbox_.Put(std::move(work)); });
  }

  void Start(const ListSource& source) {
    importer_->Start(source, NameClash::Rename,
                     {.news = {.onFolder = [this](const auto& row) { news_ += row.name + ": "; },
                               .onChannel = [this](const auto& row) { news_ += row.title + " "; }},
                      .onEnd = [this](const ImportEnd& end) {
                        news_ += end.sums ? "=" + std::to_string(end.sums->added) + " "
                                          : end.error + " ";
                        ++ends_;
                      }});
  }

  void StartFile(const std::string& path) { Start({.place = path}); }

  [[nodiscard]] bool WaitForEnds(int count) {
    return inbox_.DoUntil([&] { return ends_ == count; });
  }

  IngestKit kit_;
  CheckClock clock_;
  TempFolder files_;
  Inbox inbox_;
  std::string news_;
  int ends_ = 0;
  std::optional<OpmlImporter> importer_;
};

TEST_F(Importer, TellsEachRowAndTheEndOneImportAfterTheOther) {
  StartFile(files_.Write("a.opml", OpmlDocument(NumberedFolder("A", 2))));
  StartFile(files_.Write("no.opml", "<html/>"));
  StartFile(files_.Write("b.opml", OpmlDocument(NumberedFolder("A", 1))));
  ASSERT_TRUE(WaitForEnds(3));
  EXPECT_EQ(news_, "A: c1 c2 =2 this is not OPML A-1: c1 =1 ");
}

TEST_F(Importer, ItsEndBreaksAnImportOffAndIsSoonOver) {
  kit_.server.Hang("/hang");
  StartFile(files_.Write("a.opml", OpmlDocument(NumberedFolder("A", 20'000))));
  Start({.place = kit_.server.Url("/hang"), .isAddress = true});
  ASSERT_TRUE(inbox_.WaitForWork());
  const auto start = std::chrono::steady_clock::now();
  importer_.reset();
  EXPECT_LT(std::chrono::steady_clock::now() - start, 5s);
  EXPECT_LT(kit_.db.Count("TB_CHANNEL"), 20'000);
  inbox_.DoAll();
  EXPECT_EQ(news_, "");
  EXPECT_EQ(kit_.WorkFiles(), std::vector<std::string>());
}

TEST_F(Importer, AnImportAndARefreshLoseNothingOfEachOther) {
  RecordingTarget frame;
  RecordingTarget host;
  RefreshEngine engine(kit_.Services(), frame, host);
  for (int i = 1; i <= 10; ++i) {
    const std::string path = "/f" + std::to_string(i);
    kit_.server.Serve(path, NumberedRss(path, "http://posts" + path + "/", 20));
    engine.Enqueue({.channelId = kit_.db.AddChannelWithPosts(99, path, 0),
                    .folderId = 99,
                    .title = path,
                    .xmlLink = kit_.server.Url(path),
                    .htmlLink = {}});
  }
  engine.StartRefresh();
  StartFile(files_.Write("a.opml", OpmlDocument(NumberedFolder("A", 60))));
  ASSERT_TRUE(WaitForEnds(1));
  ASSERT_TRUE(host.WaitFor(
      [](const SentMessage& sent) { return sent.message == kMessageRefreshEnded; }, 20s, 1));
  EXPECT_EQ(kit_.db.Reports(), std::vector<std::string>());
  EXPECT_EQ(kit_.db.Count("TB_CHANNEL where channel_folderID <> 99"), 60);
  EXPECT_EQ(kit_.db.Count("TB_POST"), 200);
}

TEST_F(Importer, AFileThatIsBeingWrittenIsRefusedUntilItIsWhole) {
  const std::string list = OpmlDocument(NumberedFolder("A", 3));
  const std::string path = files_.Write("growing.opml", "");
  std::ofstream file(path, std::ios::binary);
  for (std::size_t at = 0; at < list.size(); ++at) {
    if (at % 40 == 0) {
      StartFile(path);
      ASSERT_TRUE(WaitForEnds(static_cast<int>(at / 40) + 1));
      EXPECT_EQ(kit_.db.Count("TB_FOLDER"), 0);
    }
    file << list[at] << std::flush;
  }
  StartFile(path);
  ASSERT_TRUE(WaitForEnds(ends_ + 1));
  EXPECT_EQ(StoredList(kit_.db),
            "A: c1=http://A.example/1 c2=http://A.example/2 c3=http://A.example/3");
}

}  // namespace
}  // namespace feedloom
