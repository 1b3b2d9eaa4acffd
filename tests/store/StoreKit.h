// A store on a real, new database file, and a look at that file past the store.
#pragma once

#include "kit/ManualClock.h"
#include "kit/TempFolder.h"
#include "store/Store.h"

namespace feedloom {

// The database lies in a folder of its own. It has the tables of a profile's database and no rows.
class TestStore {
 public:
  TestStore();

  Store& Get() { return *store_; }
  std::shared_ptr<Store> Shared() { return store_; }
  ManualClock& Clock() { return clock_; }
  const TempFolder& Folder() const { return folder_; }
  std::string DbPath() const { return folder_.File("rssdb"); }
  std::vector<std::string> Reports() const;  // so far; any thread
  // Runs these texts of share/.
  void AddTables(std::initializer_list<const char*> names) const;

  // Run `sql` on the file directly; a failure fails the test. Value returns the first cell of the
  // result, "(null)" for NULL and "(none)" without a row.
  void Sql(const std::string& sql) const { Value(sql); }
  std::string Value(const std::string& sql) const;
  int Count(const std::string& tableAndCondition) const;
  // Adds a channel with `posts` unread posts "Post 1" ... and links "l1" ...; the channel's id.
  int AddChannelWithPosts(int folderId, const std::string& title, int posts);

 private:
  TempFolder folder_;
  ManualClock clock_;
  mutable Mutex mutex_;
  std::vector<std::string> reports_ FEEDLOOM_GUARDED_BY(mutex_);
  std::shared_ptr<Store> store_;
};

// Every SQL statement that any connection of this process runs while the object lives.
struct StatementLog {
  StatementLog();
  ~StatementLog();
  static std::vector<std::string> Take();  // those since the last call
};

// Holds the write lock of a database file, as another process would, while the object lives.
struct ForeignLock : std::shared_ptr<void> {
  explicit ForeignLock(const std::string& dbPath);
};

std::string Korean(std::string_view utf8);  // in the Korean code page

}  // namespace feedloom
