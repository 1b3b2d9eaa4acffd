#include "files/MemoryFile.h"

#include <sys/mman.h>
#include <unistd.h>

namespace feedloom {
namespace {

bool WriteAll(int handle, std::string_view content) {
  while (!content.empty()) {
    const ssize_t written = write(handle, content.data(), content.size());
    if (written <= 0) return false;
    content.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

}  // namespace

MemoryFile::MemoryFile(std::string_view content) : handle_(memfd_create("feedloom", MFD_CLOEXEC)) {
  if (handle_ >= 0 && WriteAll(handle_, content)) {
    path_ = "/proc/self/fd/" + std::to_string(handle_);
  }
}

MemoryFile::~MemoryFile() {
  if (handle_ >= 0) close(handle_);
}

}  // namespace feedloom
