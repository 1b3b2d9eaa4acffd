#pragma once

#include <functional>
#include <string>
#include <vector>

#include "exchange/FeedDirectory.h"
#include "ingest/IngestServices.h"
#include "platform/BackgroundJobs.h"

namespace feedloom {

struct DirectoryAnswer {
  bool isAnswered = false;  // false: the service gave none in time
  std::vector<PostRow> rows = {};
};

// A search of the web directory, page by page, on a thread of its own. Belongs to the thread that
// made it; no function waits for the network.
class DirectorySearch {
 public:
  using OnAnswer = std::function<void(DirectoryAnswer answer)>;

  // `service` is the directory's address, in the module's code page.
  DirectorySearch(SharedServices services, std::string service, BackgroundJobs::Post toOwner);

  // Asks for the first page of a word. The request that runs is given up. `onAnswer` is called
  // once, on the owner's thread, within ten seconds and a moment; it may begin and give up
  // searches, and may end the object.
  void Begin(const std::string& word, OnAnswer onAnswer);
  // Asks for the next page. Does nothing while a request runs or when there is none: it is there
  // as long as the pages taken hold fewer records than the total that came with the first.
  void More(OnAnswer onAnswer);
  bool HasMore() const;
  // The request that runs is not answered any more. A page that did not come can be asked for
  // again; when it was the first one, the search before it goes on.
  void GiveUp();

  bool IsRunning() const { return isRunning_; }
  // The hits that the service has in all, as it said with the first page.
  int Total() const { return total_; }

 private:
  void Ask(const std::string& word, int page, OnAnswer onAnswer);
  void Keep(const std::string& word, int asked, int came, int total);

  const SharedServices services_;
  const std::string service_;
  std::string word_;
  int page_ = 0;  // the last one that came
  int total_ = 0;
  bool isRunning_ = false;
  BackgroundJobs jobs_;
};

}  // namespace feedloom
