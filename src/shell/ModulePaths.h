#pragma once

#include <string>

namespace feedloom {

// Where the module's files lie, as it was loaded; links in the path are not resolved, so that users
// who share one installed module by links have files of their own. The file system's own bytes.
//
//   <profile>/registry.reg         the host's registry
//   <profile>/module/feedloom.so   the module, and beside it the database
struct ModulePaths {
  std::string module;
  std::string registry;
};

// Of the library that this code is in. Any thread.
ModulePaths FindModulePaths();

}  // namespace feedloom
