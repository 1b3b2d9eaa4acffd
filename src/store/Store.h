// What all operations of the feed store share: the database's path, the lock, and how failures are
// reported. The operations are in Folders.h, Channels.h, Cabinets.h, Posts.h, ReadStatus.h,
// Counts.h and Search.h.
//
// The file is a SQLite database with five tables:
//   TB_FOLDER        folders, the containers of channels
//   TB_CHANNEL       channels, one a subscribed feed       channel_folderID -> folder_id
//   TB_POST          posts, one an item of a feed          post_channelID -> channel_id
//   TB_SCRAP_CHANNEL cabinets, the user's own collections
//   TB_SCRAP_POST    copies of posts in cabinets           scrap_post_scrapChannelID -> ..._id
// The schema does not enforce the relations: an operation that deletes a row deletes the rows that
// belong to it. Dates are texts "%Y-%m-%d %H:%M:%S"; texts are in the module's code page.
#pragma once

#include <atomic>
#include <functional>
#include <string>
#include <string_view>
#include <thread>

#include "text/CodePage.h"
#include "threads/Clock.h"
#include "threads/Mutex.h"

namespace feedloom {

// Returns the path of the file "rssdb" in the directory of `modulePath`, the full path of the
// module's own file; "\rssdb" when that path is empty. Pure; any thread.
std::string GetDbPath(std::string_view modulePath);

// Gets the message to show to the user when something fails, in the module's code page (SQLite's
// messages are English). Called on the thread on which the operation failed.
using ErrorReport = std::function<void(std::string_view text)>;

// The store of a process. It must outlive every thread that runs operations. An operation opens a
// connection of its own, runs its statements and closes it. Two threads of one process never find
// the file locked, because each statement runs under Lock(). A statement that finds the file locked
// by another program waits before it fails: 1 s on the interface thread, 5 s on others.
class Store {
 public:
  // `dbPath` is in the file system's encoding. When there is no such file, operations report
  // SQLite's error. `clock` must outlive the object. `interfaceThread` is the thread that must not
  // wait for long; a program without windows has none.
  Store(std::string dbPath, CodePage codePage, Clock& clock, ErrorReport report,
        std::thread::id interfaceThread = {});

  const std::string& DbPath() const { return dbPath_; }
  CodePage TextCodePage() const { return codePage_; }
  const Clock& GetClock() const { return clock_; }

  void ReportStoreError(std::string_view message) const { report_(message); }

  // Called before and after each statement: pause for 10 ms, so that many statements in a row leave
  // the machine to the user. They do not exclude other threads: a call returns at once while the
  // statement of another thread is in progress.
  void EnterStoreBusy();
  void LeaveStoreBusy();

  // Held for one SQL statement, or one short transaction, at a time; never during a pause, a
  // download or a parse. It guards the refresh queue too.
  Mutex& Lock() { return lock_; }

  // Called by a thread that holds the lock and has found the file locked by another program `tries`
  // times already. Lets the lock go, waits a moment, and takes the lock again. Returns false at
  // once when the thread has waited long enough.
  bool WaitForOtherProgram(int tries) FEEDLOOM_REQUIRES(lock_);

 private:
  const std::string dbPath_;
  const CodePage codePage_;
  Clock& clock_;
  const ErrorReport report_;
  const std::thread::id interfaceThread_;
  std::atomic<bool> busy_ = false;
  Mutex lock_;
};

}  // namespace feedloom
