#include "shell/ModulePaths.h"

#include <dlfcn.h>

#include <filesystem>

namespace feedloom {
namespace {

// dladdr finds the library's file by an address inside the library.
const char kHere = 0;

std::string ModuleFile() {
  Dl_info info{};
  if (dladdr(&kHere, &info) == 0 || info.dli_fname == nullptr) return {};
  std::error_code unknown;
  const auto path = std::filesystem::absolute(info.dli_fname, unknown);
  return unknown ? std::string() : path.lexically_normal().string();
}

}  // namespace

ModulePaths FindModulePaths() {
  const std::string module = ModuleFile();
  const auto profile = std::filesystem::path(module).parent_path().parent_path();
  return {module, (profile / "registry.reg").string()};
}

}  // namespace feedloom
