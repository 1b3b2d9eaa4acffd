#pragma once

#include <string>

#include "profile/Files.h"

namespace feedloom {

// The rows of a new database. Texts are in the module's code page.
struct InitialContent {
  std::string folderName;   // the only folder, which is protected
  std::string cabinetName;  // the only cabinet
  std::string sampleTitle;  // the only channel, in the folder
  std::string sampleFeedUrl;
};

// Creates the SQLite database at `path`, which must not exist: executes `schema` (SQL), then
// inserts `content`. The file is built as "`path`.new" and renamed when it is complete; a failure
// removes it and returns a message for the user (UTF-8).
[[nodiscard]] Failure CreateDatabase(const std::string& path, const std::string& schema,
                                     const InitialContent& content);

// The version of the database library, "3.40.1".
std::string DatabaseVersion();

// Gives channels of the database at `path` whose address begins with `from` one that begins with
// `to` in its place (both ASCII). Returns false after a failure.
[[nodiscard]] bool MoveAddresses(const std::string& path, std::string_view from,
                                 std::string_view to);

}  // namespace feedloom
