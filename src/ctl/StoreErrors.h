#pragma once

#include <atomic>
#include <string_view>

namespace feedloom {

inline constexpr std::string_view kDatabaseInUse = "the database is in use by another program";

// Prints what the store reports; that another program locks the database, once for a command,
// however many statements find it so. Any thread may call it.
class StoreErrors {
 public:
  // `message` is SQLite's.
  void Report(std::string_view message);
  bool AnyReported() const { return anyReported_; }

 private:
  std::atomic<bool> anyReported_ = false;
  std::atomic<bool> isLockTold_ = false;
};

}  // namespace feedloom
