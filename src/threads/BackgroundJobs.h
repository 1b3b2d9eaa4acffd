#pragma once

#include <functional>
#include <stop_token>
#include <thread>

namespace feedloom {

// Runs jobs one after the other on a background thread. A job can report to the thread that owns
// the object. Only the owner's thread may call the functions; only the destructor waits for a job.
class BackgroundJobs {
 public:
  // Queues `work` for the owner's thread, or drops it, and returns without running it. Called on a
  // job's thread, or in Start on the owner's, and never after the object has been destroyed.
  using Post = std::function<void(std::function<void()> work)>;
  // Reports to the owner: `news` runs on the owner's thread, unless the job was stopped before.
  // `news` may start and stop jobs, and may destroy the object.
  using Tell = std::function<void(std::function<void()> news)>;
  using Job = std::function<void(const std::stop_token& stop, const Tell& tell)>;

  explicit BackgroundJobs(Post toOwner) : toOwner_(std::move(toOwner)) {}
  // Stops all jobs and waits until the last one has returned.
  ~BackgroundJobs();
  BackgroundJobs(const BackgroundJobs&) = delete;
  BackgroundJobs& operator=(const BackgroundJobs&) = delete;

  // `job` begins when all earlier jobs have returned. A job that is stopped before it begins is
  // still called, with its stop requested. When the system refuses a thread, `job` is not called;
  // `onRefusal` is then told to the owner like news, after Start has returned.
  void Start(Job job, std::function<void()> onRefusal);
  // Requests a stop of all jobs started so far. None of their news runs after this call.
  void StopAll();

 private:
  const Post toOwner_;
  std::stop_source stop_;  // of the jobs since the last StopAll
  std::thread thread_;     // runs the latest job; joins the thread of the job before
};

}  // namespace feedloom
