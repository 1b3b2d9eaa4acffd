// The importer on its thread, with the test as its owner.
#include <fmt/core.h>

#include <atomic>

#include "exchange/OpmlImporter.h"
#include "kit/FeedDocuments.h"
#include "kit/Inbox.h"
#include "kit/ThreadRefusal.h"
#include "refresh/RefreshEngine.h"
#include "refresh/RefreshKit.h"

namespace feedloom {

struct Importer : testing::Test {
  void Start(const std::string& name, const std::string& bytes) {
    const ImportListener rows{
        [this](auto& row) { news_ += fmt::format("{}({}): ", row.name, row.order); },
        [this](auto& row) { news_ += fmt::format("{}={} ", row.folderId, row.title); }};
    const auto onEnd = [this](const ImportEnd& end) {
      news_ += end.sums ? fmt::format("{} added ", end.sums->added) : end.error + " ";
      ++ends_;
    };
    const auto onRead = [this, rows, onEnd](const ReadList& list) {
      if (list.plan) return importer_->Add(*list.plan, NameClash::Rename, {rows, onEnd});
      onEnd({.sums = std::nullopt, .error = list.error});
    };
    importer_->Read({.place = files_.Write(name, bytes)}, onRead);
  }

  RefreshKit kit_;
  TempFolder files_;
  Inbox inbox_;
  std::string news_;
  int ends_ = 0;
  std::atomic<std::ptrdiff_t> background_ =
      0;  // the most threads there that the import has seen, itself one
  std::optional<OpmlImporter> importer_{
      std::in_place, kit_.Services(), [this](std::function<void()> work) {
        background_ = std::max(background_.load(), ThreadsInTheBackground());
        inbox_.Put(std::move(work));
      }};
};

TEST_F(Importer, TellsEachRowAndTheEndOneImportAfterTheOtherWhileARefreshAddsPosts) {
  RecordingTarget frame, host;
  RefreshEngine engine(kit_.Services(), frame, host);
  kit_.server.Serve("/feed", NumberedRss("feed", "http://posts/", 100));
  const int id = kit_.db.AddChannelWithPosts(99, "feed", 0);
  engine.Enqueue(
      {{.id = id, .folderId = 99, .title = "feed", .xmlLink = kit_.server.Url("/feed")}});
  Start("a", OpmlDocument(NumberedFolder("A", 2)));
  ASSERT_TRUE(inbox_.WaitForWork());
  EXPECT_GE(background_, 1);
  engine.StartRefresh();
  Start("no", "<html/>");
  Start("b", OpmlDocument(NumberedFolder("A", 1)));
  ASSERT_TRUE(inbox_.DoUntil([&] { return ends_ == 3; }));
  std::optional<ThreadRefusal> refusal(std::in_place);
  Start("c", "");
  refusal.reset();
  ASSERT_TRUE(inbox_.DoUntil([&] { return ends_ == 4; }));
  ASSERT_TRUE(host.WaitFor(kMessageRefreshEnded));
  EXPECT_EQ(news_,
            "this is not OPML A(1): 1=c1 1=c2 2 added A-1(2): 2=c1 1 added "
            "the system refuses another thread ");
  EXPECT_EQ(kit_.db.Reports(), std::vector<std::string>());
  EXPECT_EQ(kit_.db.Count("TB_CHANNEL") + kit_.db.Count("TB_POST"), 104);
}

}  // namespace feedloom
