#pragma once

#include <QTimer>
#include <memory>
#include <optional>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "store/Counts.h"
#include "store/WriteMark.h"
#include "threads/BackgroundJobs.h"
#include "ui/tree/GroupTreeModel.h"

namespace feedloom {

class CRSS_LeftContainer;
class Desk;
class Reading;

// What comes into the window without its user: the posts that a refresh brings, and what other
// programs change in the database. It is read on a background thread, one reading at a time, so
// that the pauses of the store pass there. A reading is thrown away and done again when rows,
// counts or posts have changed meanwhile (CRSS_LeftContainer::Revision).
//
// A channel's result waits up to 100 ms for others, which are counted together with it. Then come
// in this order: counts and marks, the list if it shows the channel or its folder, the status text.
//
// Interface thread only.
class Arrivals {
 public:
  // `start` is older than all that the window shows. `desk`, `reading` and `left` are used until
  // Stop, and `toHere` passes work to the interface thread.
  Arrivals(Desk& desk, Reading& reading, CRSS_LeftContainer& left, std::shared_ptr<Store> store,
           WriteMark start, BackgroundJobs::Post toHere);

  // Gives up what waits, and returns when the background thread has ended. Afterwards nothing is
  // read any more.
  void Stop();

  // Handles the messages about channels of a refresh (kMessageChannelResult and the next two). With
  // the run's end what waits is counted before the call returns.
  void OnMessage(unsigned number, int first, int second);

  // `text` is the status text of a run that ends; it is told behind those of its channels. An empty
  // one is not told. To be called before the message of the run's end.
  void TellAtEnd(std::string text, bool isFailure) {
    endText_ = std::move(text);
    endIsFailure_ = isFailure;
  }

  // As Reading::RecountUnread. Posts that workers have stored, and that are not counted yet, are
  // added to the unread total.
  void Recount(bool ofScrapPosts);

  // Brings tree and list up to date if another program has written to the database. Waits while a
  // dialog or a menu is open, or a mouse button pressed. What others change moves the unread total
  // and the announced one alike: it is not announced.
  void LookForChanges();

 private:
  struct Changes {
    WriteMark mark;
    std::optional<TreeContent> tree;  // only when somebody has written
  };

  void OnResult(int result, int channelId);
  void OnWorker(int channelId, bool isNew);
  void EndWork();
  template <typename Read, typename Take>
  void ReadBehind(Read read, Take take);
  void ReadNext();
  void ReadCounts();
  void ReadShownPosts();
  void ReadChanges();
  void CountNow();
  void TakeCounts(const std::optional<ChannelCounts>& counts, std::size_t channels);
  void TakeChanges(const Changes& changes);
  template <typename Change>
  int CountArrivedBy(Change change);
  template <typename Change>
  void FollowStore(Change change);
  void TellOf(const char* textKey, int channelId);
  void TellReceived();

  Desk& desk_;
  Reading& reading_;
  CRSS_LeftContainer& left_;
  const std::shared_ptr<Store> store_;
  WriteMark seen_;  // what was written until then is shown
  std::optional<BackgroundJobs> jobs_;
  QTimer countTimer_;
  QTimer lookTimer_;
  bool isReading_ = false;
  // What is to be read next:
  bool countIsDue_ = false;
  bool listIsDue_ = false;
  bool lookIsDue_ = false;
  std::unordered_set<int> atWork_;  // channels whose workers have begun and not reported yet
  std::vector<int> waiting_;        // channels that were refreshed and are not counted yet
  std::vector<int> counted_;        // channels whose status texts are due
  std::string endText_;             // due behind them
  bool endIsFailure_ = false;
};

}  // namespace feedloom
