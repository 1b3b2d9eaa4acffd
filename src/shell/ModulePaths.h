#pragma once

#include <string>

namespace feedloom {

// The paths of the module's files, relative to the path that the module was loaded from. Links in
// that path are not resolved: users may share one installed module by links and still have files of
// their own. Paths are in the file system's own bytes.
//
//   <profile>/registry.reg         the host's registry
//   <profile>/module/feedloom.so   the module, and beside it the database
struct ModulePaths {
  std::string module;
  std::string registry;
};

// Returns the paths for the library that contains this code. Any thread may call it.
ModulePaths FindModulePaths();

}  // namespace feedloom
