#include "check/FeedChecker.h"

#include "check/FeedCheck.h"
#include "threads/ThreadPriority.h"

namespace feedloom {

void FeedChecker::Start(const std::string& address, const std::optional<GivenLogin>& login,
                        std::function<void(const FeedCheckAnswer&)> onAnswer) {
  Stop();
  const auto check = [services = services_, address, login, onAnswer](
                         const std::stop_token& stop, const BackgroundJobs::Tell& tell) {
    LowerThreadPriority();
    tell([onAnswer, answer = CheckFeed(*services, address, login, stop)] { onAnswer(answer); });
  };
  jobs_.Start(check, [onAnswer] { onAnswer({}); });
}

}  // namespace feedloom
