// A profile: the directory in which a user's registry and database live.
//
//   registry.reg        the host's registry; a profile exists when this file does
//   sample.xml          the feed of the sample channel
//   module/feedloom.so  the installed module, linked by the host program
//   module/rssdb        the database, beside the module
//   work/               temporary files
//
// Paths are the file system's own bytes. These functions are called at a program's start, before
// other threads run.
#pragma once

#include <string>

#include "platform/CodePage.h"
#include "profile/Files.h"

namespace feedloom {

struct ProfilePaths {
  explicit ProfilePaths(const std::string& profileDir);

  std::string dir;
  std::string registry;
  std::string sampleFeed;
  std::string moduleDir;
  std::string module;
  std::string database;
  std::string workDir;
};

// $XDG_DATA_HOME/halvix, else ~/.local/share/halvix; empty when the user has no home directory.
std::string DefaultProfileDir();

// The directory of the program's shared files: ../share/feedloom beside the executable's directory,
// where they are built and installed.
std::string ShareDir();

bool ProfileExists(const ProfilePaths& paths);

// Makes a profile in `dir` (made when missing) from the files in `shareDir`: a registry, and a
// database with one folder, one cabinet and a channel of the sample feed, named in `language`
// ("KOR", "ENG"; case does not matter). The registry comes last. When a creation was interrupted,
// the next one does the rest; a registry or a database that is there is never replaced. Two
// programs may try at the same time: one succeeds, the other one finds that a profile exists.
[[nodiscard]] Failure CreateProfile(const std::string& dir, const std::string& shareDir,
                                    CodePage codePage, const std::string& language);

// When the directory of the ini files that the profile's registry names is gone, or its image
// directory holds no skin, points the profile's shared paths to `shareDir`, to the skin of the same
// name if there is one. Makes the work folder again when it is gone and can be made. Does nothing
// otherwise.
[[nodiscard]] Failure RepairSharePaths(const std::string& dir, const std::string& shareDir);

}  // namespace feedloom
