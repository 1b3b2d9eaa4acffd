#pragma once

#include <functional>
#include <string>
#include <vector>

#include "exchange/FeedDirectory.h"
#include "fetch/FetchServices.h"
#include "threads/BackgroundJobs.h"

namespace feedloom {

// Searches the web directory page by page on a background thread. An object belongs to the thread
// that has created it; none of its functions waits for the network.
class DirectorySearch {
 public:
  using OnAnswer = std::function<void(DirectoryAnswer answer)>;

  // `service` is the directory's address, in the module's code page; `toOwner` runs work on the
  // owner's thread.
  DirectorySearch(SharedServices services, std::string service, BackgroundJobs::Post toOwner);

  // Requests the first page for `word` (in the module's code page) and gives up a request that is
  // running. `onAnswer` is called once on the owner's thread, soon after kDirectoryTimeLimit
  // at the latest, unless the request is given up; without an answer, too, when the system refuses
  // a thread. It may begin or give up searches and may destroy the object.
  void Begin(const std::string& word, OnAnswer onAnswer);
  // Requests the next page. Does nothing while a request is running, or without a next page.
  void More(OnAnswer onAnswer);
  // Whether there is a next page: the pages so far hold fewer records than Total().
  bool HasMore() const;
  // Gives up the request that is running: its `onAnswer` is not called any more. The page can be
  // requested again; when it was the first of a search, More continues the search before it.
  void GiveUp();

  bool IsRunning() const { return isRunning_; }
  // The total number of hits that the service has stated with the first page.
  int Total() const { return total_; }

 private:
  void Request(const std::string& word, int page, OnAnswer onAnswer);
  void StoreResult(const std::string& word, int requested, int arrived, int total);

  const SharedServices services_;
  const std::string service_;
  std::string word_;
  int page_ = 0;  // the last one that has arrived
  int total_ = 0;
  bool isRunning_ = false;
  BackgroundJobs jobs_;
};

}  // namespace feedloom
