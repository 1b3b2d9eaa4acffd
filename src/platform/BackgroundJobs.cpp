#include "platform/BackgroundJobs.h"

#include <utility>

namespace feedloom {

BackgroundJobs::~BackgroundJobs() {
  StopAll();
  if (thread_.joinable()) thread_.join();
}

void BackgroundJobs::Start(Job job) {
  const Tell tell = [post = toOwner_, stop = stop_.get_token()](std::function<void()> news) {
    // Jobs are stopped on the thread that runs this work: no stop comes between check and call.
    post([stop, news = std::move(news)] {
      if (!stop.stop_requested()) news();
    });
  };
  thread_ = std::thread([previous = std::move(thread_), stop = stop_.get_token(), tell,
                         job = std::move(job)]() mutable {
    if (previous.joinable()) previous.join();
    job(stop, tell);
  });
}

void BackgroundJobs::StopAll() {
  stop_.request_stop();
  stop_ = std::stop_source();
}

}  // namespace feedloom
