#include <gtest/gtest.h>

#include <QTest>
#include <QThread>
#include <atomic>
#include <thread>

#include "ui/InterfaceThread.h"

namespace feedloom {
namespace {

class InterfaceThreadTest : public testing::Test {
 protected:
  std::shared_ptr<InterfaceThread> interface_ = std::make_shared<InterfaceThread>();
};

TEST_F(InterfaceThreadTest, MessagesOfAnotherThreadAreHandledHereAndAnswered) {
  QThread* handledOn = nullptr;
  InterfaceTarget target(interface_, [&](unsigned message, std::intptr_t wParam, std::intptr_t) {
    handledOn = QThread::currentThread();
    return static_cast<std::intptr_t>(message) + wParam;
  });
  std::atomic<std::intptr_t> answer = 0;
  std::thread sender([&] { answer = target.Send(40, 2, 0); });
  EXPECT_TRUE(QTest::qWaitFor([&] { return answer == 42; }));
  sender.join();
  EXPECT_EQ(handledOn, QThread::currentThread());
}

TEST_F(InterfaceThreadTest, WorkOfTheInterfaceThreadItselfRunsAtOnce) {
  int runs = 0;
  interface_->Run([&] { ++runs; });
  interface_->RunAndWait([&] { ++runs; });
  EXPECT_EQ(runs, 2);
}

// Many rounds, so that the sender is met at its wait, too.
TEST_F(InterfaceThreadTest, ClosingLetsAWaitingSenderGoWithoutRunningItsWork) {
  for (int round = 0; round < 200; ++round) {
    InterfaceThread closing;
    std::atomic<bool> sent = false;
    std::atomic<bool> ran = false;
    std::thread sender([&] {
      closing.Run([&] { ran = true; });
      sent = true;
      closing.RunAndWait([&] { ran = true; });
    });
    while (!sent) std::this_thread::yield();
    for (int i = 0; i < round; ++i) std::this_thread::yield();
    closing.Close();
    sender.join();
    QCoreApplication::processEvents();
    EXPECT_FALSE(ran);
  }
}

TEST_F(InterfaceThreadTest, IsDeafOnceItIsClosed) {
  interface_->Close();
  bool ran = false;
  interface_->Run([&] { ran = true; });
  InterfaceTarget target(interface_, [&](auto...) { return std::intptr_t{1}; });
  EXPECT_EQ(target.Send(1, 2, 3), 0);
  EXPECT_FALSE(ran);
}

}  // namespace
}  // namespace feedloom
