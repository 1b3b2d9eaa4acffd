#pragma once

#include <string>

#include "profile/Files.h"

namespace feedloom {

// Keeps a second host program out of a profile. The system releases the lock when the process ends,
// also when it is killed.
class ProfileLock {
 public:
  ProfileLock() = default;
  ~ProfileLock();
  ProfileLock(const ProfileLock&) = delete;
  ProfileLock& operator=(const ProfileLock&) = delete;

  // Locks the profile in `profileDir` until the object is destroyed. Fails when another process
  // holds the lock or the lock file cannot be opened. Succeeds without a lock on a file system that
  // has no locks.
  [[nodiscard]] Failure Take(const std::string& profileDir);

 private:
  int handle_ = -1;
};

}  // namespace feedloom
