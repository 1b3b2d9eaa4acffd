#pragma once

#include <string>

#include "profile/Files.h"

namespace feedloom {

// Who has locked a profile, in the words of their machine; empty where that is not known.
struct LockHolder {
  std::string machine;
  std::string user;

  bool operator==(const LockHolder&) const = default;
};

// This process.
LockHolder ThisHolder();

// Keeps a second host program out of a profile. The system releases the lock when the process ends,
// also when it is killed.
class ProfileLock {
 public:
  ProfileLock() = default;
  ~ProfileLock();
  ProfileLock(const ProfileLock&) = delete;
  ProfileLock& operator=(const ProfileLock&) = delete;

  // Locks the profile in `profileDir` until the object is destroyed, and writes into the lock file
  // who has done so. Fails when another process holds the lock, which may be tried again, or the
  // lock file cannot be opened. Succeeds without a lock on a file system that has no locks.
  [[nodiscard]] Failure Take(const std::string& profileDir);

  // Whether the last Take has failed because another process holds the lock.
  bool IsHeldElsewhere() const { return isHeldElsewhere_; }

  // Who holds the lock of the profile in `profileDir`, or has held it last.
  static LockHolder Holder(const std::string& profileDir);

 private:
  void Close();

  int handle_ = -1;
  bool isHeldElsewhere_ = false;
};

}  // namespace feedloom
