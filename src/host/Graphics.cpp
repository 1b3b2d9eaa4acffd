#include "host/Graphics.h"

#include <QByteArray>
#include <algorithm>
#include <filesystem>
#include <system_error>

namespace feedloom {
namespace {

// The kernel's own drivers, one that brings its own, and the one of a guest of another system.
constexpr const char* kDevices[] = {"/dev/dri", "/dev/nvidiactl", "/dev/dxg"};

bool IsThere(const char* path) {
  std::error_code ignored;
  return std::filesystem::exists(path, ignored);
}

}  // namespace

void LeaveOutSlowGraphics() {
  constexpr char kChoice[] = "QT_XCB_GL_INTEGRATION";
  if (qEnvironmentVariableIsSet(kChoice) || std::ranges::any_of(kDevices, IsThere)) return;
  qputenv(kChoice, "none");
}

}  // namespace feedloom
