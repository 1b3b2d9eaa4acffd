#include "threads/BackgroundJobs.h"

#include <memory>
#include <utility>

#include "threads/Thread.h"

namespace feedloom {

BackgroundJobs::~BackgroundJobs() {
  StopAll();
  if (thread_.joinable()) thread_.join();
}

void BackgroundJobs::Start(Job job, std::function<void()> onRefusal) {
  const Tell tell = [post = toOwner_, stop = stop_.get_token()](std::function<void()> news) {
    // Jobs are stopped on the thread that runs this work: no stop comes between check and call.
    post([stop, news = std::move(news)] {
      if (!stop.stop_requested()) news();
    });
  };
  const auto previous = std::make_shared<std::thread>(std::move(thread_));
  const bool runs =
      StartThread(thread_, [previous, stop = stop_.get_token(), tell, job = std::move(job)] {
        if (previous->joinable()) previous->join();
        job(stop, tell);
      });
  if (runs) return;
  thread_ = std::move(*previous);
  tell(std::move(onRefusal));
}

void BackgroundJobs::StopAll() {
  stop_.request_stop();
  stop_ = std::stop_source();
}

}  // namespace feedloom
