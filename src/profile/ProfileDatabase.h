#pragma once

#include <string>

#include "profile/Files.h"

namespace feedloom {

// What a new database holds, in the module's code page.
struct FirstContent {
  std::string folderName;   // of the one protected folder
  std::string cabinetName;  // of the one cabinet
  std::string sampleTitle;  // of the channel in that folder
  std::string sampleFeedUrl;
};

// Makes the database at `path`, where none is yet: the tables of `schema` (SQL) and the first
// content. It is built beside `path` and gets its name when it is whole.
[[nodiscard]] Failure CreateDatabase(const std::string& path, const std::string& schema,
                                     const FirstContent& content);

}  // namespace feedloom
