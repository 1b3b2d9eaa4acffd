#pragma once

#include <functional>
#include <stop_token>
#include <thread>

namespace feedloom {

// Does jobs one after the other on a thread, and lets them tell the thread that owns the object how
// they get on. No function but the destructor waits for a job. All belong to the owner.
class BackgroundJobs {
 public:
  // Hands a piece of work to the owner's thread, or drops it, and comes back without waiting for
  // it. It is called on a job's thread, and not any more when the object has ended.
  using Post = std::function<void(std::function<void()> work)>;
  // The same for a job: what it tells is dropped when the job was stopped meanwhile. The owner may
  // start and stop jobs, and end the object, while it hears the news.
  using Tell = std::function<void(std::function<void()> news)>;
  using Job = std::function<void(const std::stop_token& stop, const Tell& tell)>;

  explicit BackgroundJobs(Post toOwner) : toOwner_(std::move(toOwner)) {}
  // StopAll, and waits until the last job has returned.
  ~BackgroundJobs();
  BackgroundJobs(const BackgroundJobs&) = delete;
  BackgroundJobs& operator=(const BackgroundJobs&) = delete;

  // The job begins when those before it have returned. One that waited while it was stopped is
  // called all the same, with its stop requested.
  void Start(Job job);
  // Of the jobs started so far nothing is heard any more, even if it is on its way already.
  void StopAll();

 private:
  const Post toOwner_;
  std::stop_source stop_;  // of the jobs since the last StopAll
  std::thread thread_;     // of the latest job; joins the one before
};

}  // namespace feedloom
