#include "ingest/FeedChecker.h"

#include "ingest/FeedCheck.h"
#include "platform/Messages.h"
#include "platform/ThreadPriority.h"

namespace feedloom {
namespace {

// Keeps what a check says of its address.
class AnswerKeeper : public MessageTarget {
 public:
  std::intptr_t Send(unsigned message, std::intptr_t, std::intptr_t lParam) override {
    if (message == kMessageFeedDetails) {
      // NOLINTNEXTLINE(performance-no-int-to-ptr): this is how a message carries a pointer
      answer_ = *reinterpret_cast<const FeedCheckAnswer*>(lParam);
    }
    return 0;
  }

  const FeedCheckAnswer& Answer() const { return answer_; }

 private:
  FeedCheckAnswer answer_;
};

}  // namespace

FeedChecker::FeedChecker(SharedServices services, Post toOwner)
    : services_(std::move(services)), toOwner_(std::move(toOwner)) {}

FeedChecker::~FeedChecker() { Stop(); }

void FeedChecker::Start(const std::string& address,
                        std::function<void(const FeedCheckAnswer&)> onAnswer) {
  Stop();
  onAnswer_ = std::move(onAnswer);
  thread_ = std::jthread(
      [this, address, previous = std::move(thread_)](const std::stop_token& stop) mutable {
        // Both would write the one file of the work folder.
        if (previous.joinable()) previous.join();
        RunCheck(address, stop);
      });
}

void FeedChecker::Stop() {
  thread_.request_stop();
  onAnswer_ = nullptr;
}

void FeedChecker::RunCheck(const std::string& address, std::stop_token stop) {
  LowerThreadPriority();
  AnswerKeeper keeper;
  CheckFeed(*services_, keeper, address, stop);
  if (stop.stop_requested()) return;
  toOwner_([this, stop, answer = keeper.Answer()] {
    // Whoever stops the check does it on this same thread: until then the checker lives.
    if (!stop.stop_requested()) Deliver(answer);
  });
}

void FeedChecker::Deliver(const FeedCheckAnswer& answer) {
  const auto onAnswer = std::move(onAnswer_);
  onAnswer(answer);
}

}  // namespace feedloom
