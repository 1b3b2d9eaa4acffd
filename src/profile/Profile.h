// A profile: the directory in which a user's registry and database live.
//
//   registry.reg        the host's registry; a profile exists when this file does
//   string.ini          the user's own texts and addresses, if there are any
//   sample.xml          the sample channel's feed
//   module/feedloom.so  the installed module, linked by the host program
//   module/rssdb        the database, beside the module, with parts in rssdb-wal
//   work/               temporary files
//
// Paths are the file system's bytes. Failures are messages for the user (UTF-8). Call these
// functions at the program's start, before other threads run.
#pragma once

#include <string>

#include "profile/Files.h"
#include "text/CodePage.h"

namespace feedloom {

struct ProfilePaths {
  explicit ProfilePaths(const std::string& profileDir);

  std::string dir;
  std::string registry;
  std::string texts;
  std::string sampleFeed;
  std::string moduleDir;
  std::string module;
  std::string database;
  std::string workDir;
};

// The default profile directory: $XDG_DATA_HOME/halvix, or else ~/.local/share/halvix, as the
// desktops' XDG base directories want it. Empty when HOME is not set.
std::string DefaultProfileDir();

// The directory of the program's shared files: ../share/feedloom, relative to the executable's
// directory, both in a build and in an installation.
std::string ShareDir();

// Whether the registry file exists, even as a dangling link.
bool ProfileExists(const ProfilePaths& paths);

// Creates a profile in `dir`, and `dir` itself if it is missing, from the files in `shareDir`: a
// registry and a database with one folder, one cabinet and a channel for the sample feed, named in
// `language` ("KOR" or "ENG", in upper or lower case). The registry is written last, so the next
// call completes an interrupted one. An existing registry or database is never replaced. When two
// processes call it at the same time, one succeeds and the other one fails: a profile exists.
[[nodiscard]] Failure CreateProfile(const std::string& dir, const std::string& shareDir,
                                    CodePage codePage, const std::string& language);

// Makes the database of a profile that has none, as CreateProfile does.
[[nodiscard]] Failure MakeDatabase(const ProfilePaths& paths, const std::string& shareDir,
                                   CodePage codePage, const std::string& language);

// Repairs the paths in the registry of the profile in `dir`. When its ini directory does not exist,
// or its image directory contains no skin, the shared paths are set to `shareDir`, with the skin of
// the same name if there is one and the light skin otherwise. A missing work directory is created
// if possible. Fails when the registry cannot be read or written, or `shareDir` is needed and
// missing.
[[nodiscard]] Failure RepairSharePaths(const std::string& dir, const std::string& shareDir);

}  // namespace feedloom
