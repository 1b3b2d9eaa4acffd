#pragma once

#include <string>

#include "profile/Files.h"

namespace feedloom {

// Keeps a second host program out of a profile. The system drops the lock when the process ends,
// however it ends.
class ProfileLock {
 public:
  ProfileLock() = default;
  ~ProfileLock();
  ProfileLock(const ProfileLock&) = delete;
  ProfileLock& operator=(const ProfileLock&) = delete;

  // Locks the profile in `profileDir` until the object ends; fails when another process has it. A
  // file system that knows no locks does not lock.
  [[nodiscard]] Failure Take(const std::string& profileDir);

 private:
  int handle_ = -1;
};

}  // namespace feedloom
