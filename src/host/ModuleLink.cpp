#include "host/ModuleLink.h"

#include <fmt/core.h>

#include <filesystem>
#include <system_error>

namespace feedloom {
namespace {

namespace fs = std::filesystem;

fs::path ProgramDir() {
  std::error_code ignored;
  return fs::read_symlink("/proc/self/exe", ignored).parent_path();
}

}  // namespace

std::string InstalledModule() {
  const fs::path dir = ProgramDir();
  for (const fs::path& path :
       {dir / "feedloom.so", dir.parent_path() / "lib" / "feedloom" / "module" / "feedloom.so"}) {
    if (IsRegularFile(path.string())) return path.string();
  }
  return {};
}

Failure LinkModule(const std::string& link, const std::string& installed) {
  std::error_code error;
  const auto present = fs::symlink_status(link, error).type();
  if (present != fs::file_type::symlink && present != fs::file_type::not_found) return {};
  if (installed.empty()) {
    if (fs::exists(link, error)) return {};
    return fmt::format("The module feedloom.so is missing beside this program, in '{}'.",
                       ProgramDir().string());
  }
  if (fs::read_symlink(link, error) == installed) return {};
  const std::string made = link + ".new";
  fs::remove(made, error);  // of a start that was interrupted
  fs::create_symlink(installed, made, error);
  if (!error) return MoveIntoPlace(made, link);
  return fmt::format("Cannot create the link '{}': {}.", made, error.message());
}

}  // namespace feedloom
