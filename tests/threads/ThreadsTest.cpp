#include <gtest/gtest.h>

#include "kit/Inbox.h"
#include "kit/ThreadRefusal.h"
#include "threads/BackgroundJobs.h"
#include "threads/Clock.h"
#include "threads/Thread.h"

namespace feedloom {

using namespace std::chrono_literals;

struct Jobs : testing::Test {
  // The job notes its name, with "!" when it was stopped, and tells it. Of one that gets no thread
  // "-" is heard.
  void Start(const std::string& name, bool lastsUntilStopped = false) {
    const auto job = [=, this](auto& stop, auto& tell) {
      if (lastsUntilStopped) SystemClock().Pause(24h, stop);
      ran_ += stop.stop_requested() ? name + "!" : name;  // jobs run one after the other
      tell([this, name] { heard_ += name; });
    };
    jobs_->Start(job, [this] { heard_ += "-"; });
  }

  Inbox inbox_;
  std::string ran_, heard_;
  std::optional<BackgroundJobs> jobs_{
      std::in_place, [this](std::function<void()> work) { inbox_.Put(std::move(work)); }};
};

TEST_F(Jobs, RunInOrderAndAStopReachesThoseThatWereStartedBeforeIt) {
  for (const char* name : {"a", "b"}) Start(name, true);
  jobs_->StopAll();
  Start("c", true);
  jobs_->StopAll();
  for (const char* name : {"d", "e"}) Start(name);
  EXPECT_TRUE(inbox_.DoUntil([this] { return heard_ == "de"; }));
  EXPECT_EQ(ran_, "a!b!c!de");
}

TEST_F(Jobs, TheEndStopsThemAndWaitsForThemAndDropsNewsOnTheirWay) {
  Start("a");
  ASSERT_TRUE(inbox_.WaitForWork());
  Start("b", true);
  jobs_.reset();
  inbox_.DoAll();
  EXPECT_EQ(ran_ + heard_, "ab!");
}

TEST_F(Jobs, WhoHearsTheNewsMayEndThem) {
  jobs_->Start([this](auto&, auto& tell) { tell([this] { jobs_.reset(); }); }, {});
  EXPECT_TRUE(inbox_.DoUntil([this] { return !jobs_; }));
}

TEST_F(Jobs, WithoutAThreadTellTheirOwnerLaterAndTheOthersGoOn) {
  Start("a", true);
  {
    const ThreadRefusal refusal;
    for (const char* name : {"b", "c"}) Start(name);
    EXPECT_EQ(heard_, "");
    EXPECT_TRUE(inbox_.DoUntil([this] { return heard_ == "--"; }));
    Start("d");
  }
  jobs_->StopAll();
  Start("e");
  EXPECT_TRUE(inbox_.DoUntil([this] { return heard_ == "--e"; }));
  EXPECT_EQ(ran_, "a!e");
}

TEST(ThreadTest, StartsOrTellsThatTheSystemRefusesIt) {
  std::thread thread;
  std::optional<ThreadRefusal> refusal(std::in_place);
  EXPECT_FALSE(StartThread(thread, [] { ADD_FAILURE(); }));
  refusal.reset();
  bool ran = false;
  ASSERT_TRUE(StartThread(thread, [&] { ran = true; }));
  thread.join();
  EXPECT_TRUE(ran);
}

TEST(MutexTest, LetsThreadsInOneAtATimeAndEachInItsTurn) {
  Mutex mutex;
  std::atomic<int> work = 0;
  std::jthread greedy([&](std::stop_token stop) {
    while (!stop.stop_requested()) {
      const MutexLock lock(mutex);
      for (int i = 0; i < 100'000; ++i) ++work;
    }
  });
  int fair = 0;  // not all: this thread may lose the processor before it asks
  for (int i = 0; i < 101; ++i) {
    for (const int seen = work; work == seen;) std::this_thread::yield();
    const int before = work;
    const MutexLock lock(mutex);
    EXPECT_EQ(work % 100'000, 0);
    fair += work - before <= 100'000 ? 1 : 0;
  }
  greedy = {};
  EXPECT_GT(fair, 90);
}

}  // namespace feedloom
