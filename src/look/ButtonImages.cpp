#include "look/ButtonImages.h"

#include <string_view>

namespace feedloom {
namespace {

// The index of the extension's dot; the length of `path` without an extension.
std::size_t ExtensionStart(std::string_view path) {
  const auto dot = path.find_last_of("./\\");
  return dot != std::string_view::npos && path[dot] == '.' ? dot : path.size();
}

}  // namespace

std::array<std::string, kButtonStateCount> ButtonImagePaths(const std::string& imagePath) {
  const auto with = [&, at = ExtensionStart(imagePath)](const char* suffix) {
    return std::string(imagePath).insert(at, suffix);
  };
  return {imagePath, with("_hover"), with("_pressed"), with("_disabled")};
}

}  // namespace feedloom
