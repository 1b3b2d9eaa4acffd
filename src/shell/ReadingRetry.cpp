#include "shell/ReadingRetry.h"

#include <utility>

#include "store/Store.h"

namespace feedloom {
namespace {

constexpr std::chrono::milliseconds kRetryPeriod{500};

}  // namespace

ReadingRetry::ReadingRetry(std::shared_ptr<Store> store, const Settings& settings,
                           BackgroundJobs::Post toOwner, OnRead onRead)
    : store_(std::move(store)),
      settings_(settings),
      onRead_(std::move(onRead)),
      jobs_(std::move(toOwner)) {
  timer_.setSingleShot(true);
  timer_.callOnTimeout([this] { ReadNow(); });
  timer_.start(kRetryPeriod);
}

void ReadingRetry::ReadNow() {
  timer_.stop();
  jobs_.StopAll();
  const auto job = [this, store = store_, settings = settings_](const std::stop_token& /*stop*/,
                                                                const BackgroundJobs::Tell& tell) {
    tell([this, content = ReadFirstContent(*store, settings)] { Take(content); });
  };
  jobs_.Start(job, [this] { Take(ReadFirstContent(*store_, settings_)); });
}

void ReadingRetry::Take(FirstContent content) {
  if (!content.tree) return timer_.start(kRetryPeriod);
  const OnRead onRead = onRead_;  // outlives this object, which it may destroy
  onRead(std::move(content));
}

}  // namespace feedloom
