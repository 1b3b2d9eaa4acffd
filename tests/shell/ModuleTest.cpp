// The module's life in its host.
#include <fmt/core.h>

#include <QElapsedTimer>
#include <QPointer>
#include <QTreeView>
#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>

#include "kit/FeedDocuments.h"
#include "shell/ModuleFixture.h"

namespace feedloom {
namespace {

std::string OutputOf(const std::string& command) {
  std::string output;
  std::array<char, 4096> part;
  std::FILE* const pipe = popen(command.c_str(), "r");
  while (const auto size = std::fread(part.data(), 1, part.size(), pipe)) {
    output.append(part.data(), size);
  }
  EXPECT_EQ(pclose(pipe), 0);
  return output;
}

std::string ThreadName(const std::filesystem::path& task) {
  std::ifstream file(task / "comm");
  return {std::istreambuf_iterator<char>(file), {}};
}

// The process's threads that have no name of their own, as the module's have: the browser engine
// names its threads, and starts and ends them as it likes.
std::ptrdiff_t UnnamedThreads() {
  const std::string programName = ThreadName("/proc/self");
  const std::filesystem::directory_iterator tasks("/proc/self/task");
  return std::count_if(begin(tasks), end(tasks),
                       [&](const auto& task) { return ThreadName(task.path()) == programName; });
}

using Module = ModuleFixture;

TEST_F(Module, ExportsItsTwoFunctionsAndNothingElse) {
  EXPECT_EQ(OutputOf("nm -D --defined-only --format=just-symbols " FEEDLOOM_MODULE),
            "Create\nDestroyBtn\n");
}

TEST_F(Module, LivesAgainAfterItWasUnloaded) {
  CreateFrame();
  const QPointer<QWidget> firstFrame = frame_;
  Destroy();
  EXPECT_TRUE(firstFrame.isNull());
  Unload();
  CreateFrame();
  EXPECT_EQ(Tree().model()->rowCount(), 2);
}

TEST_F(Module, MakesOneFrameAndNoneWithoutAWindow) {
  Load();
  EXPECT_EQ(create_(nullptr, nullptr, nullptr), nullptr);
  CreateFrame();
  EXPECT_EQ(create_(nullptr, nullptr, host_->Pane()), nullptr);
}

TEST_F(Module, AHostThatEndsItsWindowFirstMayStillDestroy) {
  server_.Hang("/hang.xml");
  AddChannel("Never answers", "/hang.xml");
  CreateFrame();
  Send(kMessageRefreshAll);
  ASSERT_TRUE(WaitUntil([this] { return server_.Requests("/hang.xml") > 0; }));
  host_.reset();
  Destroy();
  EXPECT_TRUE(std::filesystem::exists(profile_.Paths().database + ".bak"));
}

TEST_F(Module, TellsTheHostThatARefreshHasEndedWithTheFrame) {
  server_.Hang("/hang.xml");
  AddChannel("Never answers", "/hang.xml");
  CreateFrame();
  Send(kMessageRefreshAll);
  ASSERT_TRUE(WaitUntil([this] { return !host_->windowMessages.empty(); }));
  Destroy();
  EXPECT_EQ(host_->windowMessages,
            (std::vector<unsigned>{kMessageRefreshBegan, kMessageRefreshEnded}));
}

TEST_F(Module, BacksTheDatabaseUpWhenItEnds) {
  CreateFrame();
  Destroy();
  const std::string copy = profile_.Paths().database + ".bak";
  EXPECT_EQ(std::filesystem::file_size(copy),
            std::filesystem::file_size(profile_.Paths().database));
}

TEST_F(Module, WithoutADatabaseItSaysSoStandsAndKeepsTheOlderCopy) {
  const std::filesystem::path database = profile_.Paths().database;
  std::filesystem::rename(database, database.string() + ".bak");
  std::filesystem::create_directory(database);
  CreateFrame();
  ASSERT_FALSE(host_->texts.empty());
  EXPECT_EQ(host_->texts.front(), "Can't open database");
  EXPECT_EQ(TreeLabels(), QStringList{"보관함"});
  Destroy();
  EXPECT_TRUE(std::filesystem::is_regular_file(database.string() + ".bak"));
}

TEST_F(Module, EndsWithinASecondAtAnyMomentOfARefresh) {
  for (int i = 0; i < 8; ++i) {
    const std::string path = fmt::format("/{}.xml", i);
    server_.Serve(path, NumberedRss("Feed", "http://example.com" + path + "/", 30));
    AddChannel(fmt::format("Channel {}", i), path);
  }
  server_.Hang("/hang.xml");
  AddChannel("Never answers", "/hang.xml");
  CreateFrame();
  Destroy();
  const std::ptrdiff_t idleThreads = UnnamedThreads();

  std::mt19937 random(20081121);
  for (int round = 0; round < 20; ++round) {
    CreateFrame();
    Send(kMessageRefreshAll);
    const auto posts = [this] { return Value("select count(*) from TB_POST"); };
    const int pause = std::uniform_int_distribution(0, 400)(random);
    QElapsedTimer running;
    running.start();
    WaitUntil([&] { return running.hasExpired(pause); });
    const std::string stored = posts();
    QElapsedTimer ending;
    ending.start();
    Destroy();
    EXPECT_LT(ending.elapsed(), 1000) << "destroyed after " << pause << " ms";
    EXPECT_GE(std::stoi(posts()), std::stoi(stored));
    EXPECT_EQ(Value("pragma integrity_check"), "ok");
  }
  EXPECT_TRUE(WaitUntil([&] { return UnnamedThreads() <= idleThreads; }))
      << UnnamedThreads() << " threads, " << idleThreads << " when idle";
}

}  // namespace
}  // namespace feedloom
