// What is remembered of each channel's server from one refresh to the next, in a small file.
#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "platform/Mutex.h"
#include "platform/UrlTransfer.h"
#include "platform/WholeFile.h"

namespace feedloom {

struct FeedVisit {
  std::string address;         // of the feed, then; under another one the visit means nothing
  Validators validators = {};  // of the document whose posts are all stored
  std::chrono::sys_seconds notBefore = {};  // the server does not want to be asked before

  bool operator==(const FeedVisit&) const = default;
  bool SaysNothing() const {
    return validators.AreEmpty() && notBefore.time_since_epoch().count() == 0;
  }
};

using FeedVisits = std::map<int, FeedVisit>;  // by channel id

// The file's text, and back: a line a channel. A line that is damaged is left out, and nothing is
// read of a text that is no such file; a visit with a control character in a text is not written.
std::string FeedVisitsText(const FeedVisits& visits);
FeedVisits ReadFeedVisits(std::string_view text);

// The file in the work folder.
std::string FeedMemoryPath(const std::string& workDir);

// Any thread may use one object. Two programs may keep one file: each writes only what it has found
// out itself, and what is lost costs no more than a request for the whole document.
class FeedMemory {
 public:
  // `path` is the file, which need not exist; an empty one: nothing is kept.
  explicit FeedMemory(std::string path) : path_(std::move(path)) {}

  // Reads the file afresh.
  void Load();

  bool IsEmpty() const;

  // The channel's last visit; an empty one when there was none at this address.
  FeedVisit Last(int channelId, const std::string& address) const;
  void Remember(int channelId, FeedVisit visit);

  // Writes what was remembered since Load, if anything was, into the file; visits of channels that
  // are not `alive` any more leave it.
  [[nodiscard]] Failure Save(const std::function<bool(int channelId)>& alive);

 private:
  FeedVisits ReadFile() const;

  const std::string path_;
  mutable Mutex mutex_;
  FeedVisits visits_ FEEDLOOM_GUARDED_BY(mutex_);
  FeedVisits found_ FEEDLOOM_GUARDED_BY(mutex_);
};

}  // namespace feedloom
