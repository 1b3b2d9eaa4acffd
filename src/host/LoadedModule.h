#pragma once

#include <string>

#include "profile/Files.h"
#include "shell/Feedloom.h"

namespace feedloom {

// The loaded module. Its two functions are null until Load has succeeded, and may be called until
// the object is destroyed.
struct LoadedModule {
  LoadedModule() = default;
  ~LoadedModule();
  LoadedModule(const LoadedModule&) = delete;
  LoadedModule& operator=(const LoadedModule&) = delete;

  // Loads the module at `path`. Fails with the loader's message. Call this before the application
  // object is created: the browser engine, which is loaded with the module, requires it.
  [[nodiscard]] Failure Load(const std::string& path);

  CreateFunction create = nullptr;
  DestroyBtnFunction destroyBtn = nullptr;

 private:
  void* handle_ = nullptr;
};

}  // namespace feedloom
