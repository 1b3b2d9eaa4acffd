#include "host/LoadedModule.h"

#include <dlfcn.h>
#include <fmt/core.h>

namespace feedloom {
namespace {

template <typename Function>
bool Find(void* library, const char* name, Function& function) {
  function = reinterpret_cast<Function>(dlsym(library, name));
  return function != nullptr;
}

}  // namespace

LoadedModule::~LoadedModule() {
  if (handle_ != nullptr) dlclose(handle_);
}

Failure LoadedModule::Load(const std::string& path) {
  handle_ = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (handle_ != nullptr && Find(handle_, "Create", create) &&
      Find(handle_, "DestroyBtn", destroyBtn)) {
    return {};
  }
  return fmt::format("Cannot load the module '{}': {}.", path, dlerror());
}

}  // namespace feedloom
