// feedloomctl backup and restore: the whole profile in one file.
#include <fmt/core.h>

#include "ctl/Commands.h"
#include "ctl/Output.h"
#include "ctl/Session.h"
#include "profile/ProfileBackup.h"
#include "profile/ProfileLock.h"

namespace feedloom {
namespace {

int Told(const GlobalOptions& global, const Failure& failure, std::string_view done) {
  if (failure) {
    PrintError(*failure);
    return kFailure;
  }
  if (global.json) {
    PrintJson({{"done", done}});
  } else {
    PrintLine(done);
  }
  return kSuccess;
}

// A window would go on with what it has read of the profile.
Failure Restore(const ProfilePaths& paths, const std::string& file) {
  ProfileLock lock;
  if (auto failure = lock.Take(paths.dir)) return failure;
  if (auto failure = TakeBackup(paths, file)) return failure;
  return CompleteRestore(paths);
}

}  // namespace

int RunBackup(const GlobalOptions& global, const BackupOptions& options) {
  const auto paths = OpenProfile(global);
  if (!paths) return kFailure;
  const auto logins = options.passwords ? BackedUpLogins::Included : BackedUpLogins::LeftOut;
  return Told(global, BackUpProfile(*paths, AbsolutePath(options.file), logins), "backed up");
}

// What is damaged in the profile may be just what is to be restored.
int RunRestore(const GlobalOptions& global, const std::string& file) {
  const auto paths = FindProfile(global);
  if (!paths) return kFailure;
  return Told(global, Restore(*paths, AbsolutePath(file)), "restored");
}

}  // namespace feedloom
