#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTest>
#include <QThread>
#include <atomic>
#include <thread>

#include "ui/InterfaceThread.h"

namespace feedloom {
namespace {

TEST(InterfaceThreadTest, MessagesOfAnotherThreadAreHandledHereAndAnswered) {
  const auto interface = std::make_shared<InterfaceThread>();
  InterfaceTarget target(interface,
                         [&](unsigned message, std::intptr_t wParam, std::intptr_t lParam) {
                           EXPECT_EQ(QThread::currentThread(), qApp->thread());
                           return static_cast<std::intptr_t>(message) + wParam * lParam;
                         });
  EXPECT_EQ(target.Send(40, 1, 2), 42);  // at once, when sent here
  std::atomic<std::intptr_t> answer = 0;
  std::atomic<int> runs = 0;
  std::thread sender([&] {
    interface->Run([&] { ++runs; });
    answer = target.Send(2, 10, 4);
  });
  EXPECT_TRUE(QTest::qWaitFor([&] { return answer == 42; }));
  sender.join();
  interface->Run([&] { ++runs; });
  EXPECT_EQ(runs, 2);
  interface->Close();
  interface->Run([&] { ++runs; });
  EXPECT_EQ(target.Send(40, 1, 2), 0);
  EXPECT_EQ(runs, 2);
}

// Many rounds, so that the sender is met at its wait, too.
TEST(InterfaceThreadTest, ClosingLetsAWaitingSenderGoWithoutRunningItsWork) {
  for (int round = 0; round < 200; ++round) {
    InterfaceThread closing;
    std::atomic<bool> sent = false;
    std::thread sender([&] {
      closing.Run([] { ADD_FAILURE(); });
      sent = true;
      closing.RunAndWait([] { ADD_FAILURE(); });
    });
    while (!sent) std::this_thread::yield();
    for (int i = 0; i < round; ++i) std::this_thread::yield();
    closing.Close();
    sender.join();
    QCoreApplication::processEvents();
  }
}

}  // namespace
}  // namespace feedloom
