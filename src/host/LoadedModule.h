#pragma once

#include <string>

#include "profile/Files.h"
#include "shell/Feedloom.h"

namespace feedloom {

// The module's two functions, as long as the object lives; null when nothing is loaded.
struct LoadedModule {
  LoadedModule() = default;
  ~LoadedModule();
  LoadedModule(const LoadedModule&) = delete;
  LoadedModule& operator=(const LoadedModule&) = delete;

  // Loads the module at `path`. The browser engine that comes with it insists on being there before
  // the application object is.
  [[nodiscard]] Failure Load(const std::string& path);

  CreateFunction create = nullptr;
  DestroyBtnFunction destroyBtn = nullptr;

 private:
  void* handle_ = nullptr;
};

}  // namespace feedloom
