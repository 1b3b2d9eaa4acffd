#include "ingest/FeedChecker.h"

#include "ingest/FeedCheck.h"
#include "platform/Messages.h"
#include "platform/ThreadPriority.h"

namespace feedloom {
namespace {

// Copies the answer from the check's message.
class AnswerReceiver : public MessageTarget {
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

void FeedChecker::Start(const std::string& address,
                        std::function<void(const FeedCheckAnswer&)> onAnswer) {
  Stop();
  const auto check = [services = services_, address, onAnswer](const std::stop_token& stop,
                                                               const BackgroundJobs::Tell& tell) {
    LowerThreadPriority();
    AnswerReceiver receiver;
    CheckFeed(*services, receiver, address, stop);
    tell([onAnswer, answer = receiver.Answer()] { onAnswer(answer); });
  };
  jobs_.Start(check, [onAnswer] { onAnswer({}); });
}

}  // namespace feedloom
