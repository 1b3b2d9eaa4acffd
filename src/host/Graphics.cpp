#include "host/Graphics.h"

#include <QByteArray>
#include <algorithm>
#include <filesystem>
#include <system_error>

namespace feedloom {
namespace {

// The device files of the kernel's drivers, of NVIDIA's driver, and of WSL.
constexpr const char* kDevices[] = {"/dev/dri", "/dev/nvidiactl", "/dev/dxg"};

bool IsThere(const char* path) {
  std::error_code ignored;
  return std::filesystem::exists(path, ignored);
}

}  // namespace

void DisableSoftwareOpenGl() {
  constexpr char kChoice[] = "QT_XCB_GL_INTEGRATION";
  if (qEnvironmentVariableIsSet(kChoice) || std::ranges::any_of(kDevices, IsThere)) return;
  qputenv(kChoice, "none");
}

}  // namespace feedloom
