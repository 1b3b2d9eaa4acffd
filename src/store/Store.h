// The front door of the feed store: where the database lies, how an operation reaches it, and how a
// failure is reported. The operations themselves are in Folders.h, Channels.h, Cabinets.h, Posts.h,
// ReadStatus.h and Search.h.
//
// The file is a SQLite database with five tables:
//   TB_FOLDER        folders, the containers of channels
//   TB_CHANNEL       channels, one a subscribed feed       channel_folderID -> folder_id
//   TB_POST          posts, one an item of a feed          post_channelID -> channel_id
//   TB_SCRAP_CHANNEL cabinets, the user's own collections
//   TB_SCRAP_POST    copies of posts in cabinets           scrap_post_scrapChannelID -> ..._id
// Nothing in the schema enforces the relations; the deleting operations cascade themselves. Dates
// are texts "%Y-%m-%d %H:%M:%S"; texts are in the module's code page, stored byte for byte.
#pragma once

#include <atomic>
#include <functional>
#include <string>
#include <string_view>

#include "platform/Clock.h"
#include "platform/CodePage.h"
#include "platform/Mutex.h"

namespace feedloom {

// "rssdb" in the directory of `modulePath`, the full path of the module's own file; "\rssdb" when
// that path is not known.
std::string GetDbPath(std::string_view modulePath);

// What is told to the user when something fails: a text in the module's code page (SQLite's own
// messages are English). Called on the thread that met the failure.
using ErrorReport = std::function<void(std::string_view text)>;

// What all operations share. One object a process; it outlives every thread that runs operations.
// Each operation opens a connection of its own, runs its statements and closes it; two threads of
// one process never meet a locked file, because each statement runs under the lock.
class Store {
 public:
  // `dbPath` need not exist: operations then report SQLite's own error.
  Store(std::string dbPath, CodePage codePage, Clock& clock, ErrorReport report);

  const std::string& DbPath() const { return dbPath_; }
  CodePage TextCodePage() const { return codePage_; }
  const Clock& GetClock() const { return clock_; }

  void ReportStoreError(std::string_view message) const { report_(message); }

  // Pacing, not exclusion: 10 ms pass before and after a statement while no other is in progress,
  // so that a long row of statements leaves the machine to the user. Enter never waits for the
  // flag.
  void EnterStoreBusy();
  void LeaveStoreBusy();

  // Held for one SQL statement at a time, never across a pause, a download or a parse. The refresh
  // queue is guarded by it too.
  Mutex& Lock() { return lock_; }

 private:
  const std::string dbPath_;
  const CodePage codePage_;
  Clock& clock_;
  const ErrorReport report_;
  std::atomic<bool> busy_ = false;
  Mutex lock_;
};

}  // namespace feedloom
