#include <gtest/gtest.h>

#include <QTest>
#include <QThread>
#include <future>

#include "ui/InterfaceThread.h"

namespace feedloom {

TEST(InterfaceThreadTest, RunsTheWorkOfOtherThreadsHereUntilItIsClosed) {
  const auto interface = std::make_shared<InterfaceThread>();
  InterfaceTarget target(interface, [](unsigned message, std::intptr_t wParam, auto lParam) {
    EXPECT_EQ(QThread::currentThread(), qApp->thread());
    return static_cast<std::intptr_t>(message) + wParam * lParam;
  });
  std::atomic<std::intptr_t> answer = 0;
  const auto sender = std::async(std::launch::async, [&] { answer = target.Send(2, 10, 4); });
  EXPECT_TRUE(QTest::qWaitFor([&] { return answer == 42; }));
  EXPECT_EQ(target.Send(2, 10, 4), 42);
  interface->Close();
  interface->Run([] { ADD_FAILURE(); });
  EXPECT_EQ(target.Send(2, 10, 4), 0);
}

// Many rounds, so that the sender is met at its wait, too.
TEST(InterfaceThreadTest, ClosingLetsAWaitingSenderGoWithoutRunningItsWork) {
  for (int round = 0; round < 500; ++round) {
    InterfaceThread closing;
    const auto sender =
        std::async(std::launch::async, [&] { closing.RunAndWait([] { ADD_FAILURE(); }); });
    for (int i = 0; i < round; ++i) std::this_thread::yield();
    closing.Close();
    sender.wait();
    qApp->processEvents();
  }
}

}  // namespace feedloom
