#include "files/Path.h"

namespace feedloom {

char PathSeparator(std::string_view directory) {
  return directory.find('\\') == std::string_view::npos ? '/' : '\\';
}

std::string WithTrailingSeparator(std::string_view directory) {
  std::string result(directory);
  const char separator = PathSeparator(directory);
  if (!result.empty() && result.back() != separator) result += separator;
  return result;
}

std::string JoinPath(std::string_view directory, std::string_view name) {
  return WithTrailingSeparator(directory).append(name);
}

}  // namespace feedloom
