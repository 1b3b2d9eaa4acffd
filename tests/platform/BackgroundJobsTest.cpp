#include <gtest/gtest.h>

#include <latch>
#include <optional>
#include <string>

#include "kit/Inbox.h"
#include "platform/BackgroundJobs.h"

namespace feedloom {
namespace {

class Jobs : public testing::Test {
 protected:
  // A job that tells its name, with "!" when it was stopped before it began.
  void Start(const std::string& name) {
    jobs_->Start([this, name](const std::stop_token& stop, const BackgroundJobs::Tell& tell) {
      ran_ += stop.stop_requested() ? name + "!" : name;  // jobs run one after the other
      tell([this, name] { heard_ += name; });
    });
  }

  // Ends the object, when all jobs have run, and hears what they left.
  void End() {
    jobs_.reset();
    inbox_.DoAll();
  }

  Inbox inbox_;
  std::string ran_;
  std::string heard_;
  std::latch go_{1};
  std::optional<BackgroundJobs> jobs_{
      std::in_place, [this](std::function<void()> work) { inbox_.Put(std::move(work)); }};
};

TEST_F(Jobs, RunOneAfterTheOtherInTheirOrder) {
  std::latch all{1};
  jobs_->Start([this](const std::stop_token&, const BackgroundJobs::Tell&) { go_.wait(); });
  for (const char* name : {"a", "b", "c"}) Start(name);
  jobs_->Start([&all](const std::stop_token&, const BackgroundJobs::Tell&) { all.count_down(); });
  go_.count_down();
  all.wait();
  inbox_.DoAll();
  EXPECT_EQ(ran_, "abc");
  EXPECT_EQ(heard_, "abc");
}

TEST_F(Jobs, AStopReachesTheOneThatRunsAndThoseThatWaitAndNoneThatComesLater) {
  std::latch running{1};
  jobs_->Start([&](const std::stop_token& stop, const BackgroundJobs::Tell& tell) {
    running.count_down();
    go_.wait();
    ran_ += stop.stop_requested() ? "a!" : "a";
    tell([this] { heard_ += "a"; });
  });
  running.wait();
  Start("b");
  jobs_->StopAll();
  Start("c");
  jobs_->StopAll();
  std::latch all{1};
  jobs_->Start([&](const std::stop_token& stop, const BackgroundJobs::Tell& tell) {
    ran_ += stop.stop_requested() ? "d!" : "d";
    tell([this] { heard_ += "d"; });
    all.count_down();
  });
  go_.count_down();
  all.wait();
  inbox_.DoAll();
  EXPECT_EQ(ran_, "a!b!c!d");
  EXPECT_EQ(heard_, "d");
}

TEST_F(Jobs, NewsOnTheirWayAreDroppedByAStop) {
  Start("a");
  ASSERT_TRUE(inbox_.WaitForWork());
  jobs_->StopAll();
  inbox_.DoAll();
  EXPECT_EQ(heard_, "");
}

TEST_F(Jobs, TheEndStopsAllOfThemAndHearsNoneAnyMore) {
  std::latch running{1};
  jobs_->Start([&](const std::stop_token& stop, const BackgroundJobs::Tell& tell) {
    std::latch stopped{1};
    const std::stop_callback wake(stop, [&stopped] { stopped.count_down(); });
    running.count_down();
    stopped.wait();
    tell([this] { heard_ += "a"; });
  });
  Start("b");
  running.wait();
  End();
  EXPECT_EQ(ran_, "b!");
  EXPECT_EQ(heard_, "");
}

TEST_F(Jobs, WhoHearsTheNewsMayStartStopAndEnd) {
  jobs_->Start([this](const std::stop_token&, const BackgroundJobs::Tell& tell) {
    tell([this] {
      jobs_->StopAll();
      Start("b");
    });
  });
  ASSERT_TRUE(inbox_.WaitForWork());
  inbox_.DoAll();
  ASSERT_TRUE(inbox_.WaitForWork());
  inbox_.DoAll();
  EXPECT_EQ(heard_, "b");
  jobs_->Start([this](const std::stop_token&, const BackgroundJobs::Tell& tell) {
    tell([this] { jobs_.reset(); });
  });
  ASSERT_TRUE(inbox_.WaitForWork());
  inbox_.DoAll();
  EXPECT_FALSE(jobs_);
}

}  // namespace
}  // namespace feedloom
