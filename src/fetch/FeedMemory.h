// Remembers the answer of each channel's server from one refresh to the next, in a small file.
#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "fetch/FeedFault.h"
#include "files/WholeFile.h"
#include "net/UrlTransfer.h"
#include "threads/Mutex.h"

namespace feedloom {

struct FeedVisit {
  std::string address = {};    // the feed's; the visit does not hold for any other address
  Validators validators = {};  // of the last document whose posts were all stored
  std::chrono::sys_seconds notBefore = {};  // when the server may be asked again ("Retry-After")

  // What follows is for the user. A time of 0 means never, or not known.
  FeedFault fault = {};                        // of the last try; None when it succeeded
  std::chrono::sys_seconds tried = {};         // the last try's end
  std::chrono::sys_seconds succeeded = {};     // the last success's end
  std::chrono::sys_seconds failingSince = {};  // the first try of those that failed in a row
  std::string movedTo = {};        // where the server says the feed has gone for good; UTF-8
  std::chrono::seconds period{0};  // how long the feed wishes not to be asked again; 0: no wish

  bool operator==(const FeedVisit&) const = default;
  bool IsEmpty() const { return *this == FeedVisit{address}; }
};

// Returns whether the user is to be told that the feed has probably gone for good: its server has
// said so (status 410, RFC 9110), or every try of the last 30 days has failed. Pure; any thread may
// call it.
bool IsDead(const FeedVisit& visit, std::chrono::sys_seconds now);

// Returns whether a refresh that starts by itself asks the feed again: what it has had to say
// longer than its period ago, or a failure. A tenth of the period is let off, so that a timer of
// the same period meets it. A success later than `now` does not count. Pure; any thread may call
// it.
bool IsDue(const FeedVisit& visit, std::chrono::sys_seconds now);

using FeedVisits = std::map<int, FeedVisit>;  // by channel id

// Convert visits to the text of the file, one line for each channel, and back. A visit with a
// control character in one of its texts is not written. A damaged line is skipped. A text with
// another first line yields no visits.
std::string FeedVisitsText(const FeedVisits& visits);
FeedVisits ReadFeedVisits(std::string_view text);

// Returns the path of the file in `workDir`.
std::string FeedMemoryPath(const std::string& workDir);

// The visits of one file. Any thread may call any function. Two programs may share a file: each
// writes only the visits it has changed. A visit that gets lost costs one download of the whole
// document.
class FeedMemory {
 public:
  // `path` names the file, which need not exist. With an empty `path` nothing is read or written.
  explicit FeedMemory(std::string path) : path_(std::move(path)) {}

  // Replaces the visits in memory by those of the file.
  void Load();

  bool IsEmpty() const;

  // Returns the channel's visit at `address`; one with nothing but that address when none is known.
  FeedVisit Last(int channelId, const std::string& address) const;
  // Replaces the channel's visit. It is written by the next Save.
  void Remember(int channelId, FeedVisit visit);

  // Adds the visits that were changed since Load to the file, and removes those of channels for
  // which `alive` returns false. Does not touch the file when nothing was changed. Returns the
  // failure to write it, if there was one.
  [[nodiscard]] Failure Save(const std::function<bool(int channelId)>& alive);

 private:
  FeedVisits ReadFile() const;

  const std::string path_;
  mutable Mutex mutex_;
  FeedVisits visits_ FEEDLOOM_GUARDED_BY(mutex_);
  FeedVisits changed_ FEEDLOOM_GUARDED_BY(mutex_);
};

}  // namespace feedloom
