#include "text/Converter.h"

#include <algorithm>
#include <cerrno>

namespace feedloom {

bool Converter::Convert(std::string_view& in, std::string& out) {
  char buffer[kLongest];
  while (!in.empty()) {
    const std::size_t given = std::min(in.size(), piece_);
    const bool isCut = given < in.size();
    char* from = const_cast<char*>(in.data());
    std::size_t left = given;
    char* to = buffer;
    std::size_t room = sizeof buffer;
    const std::size_t status = iconv(handle_, &from, &left, &to, &room);
    const int error = errno;
    out.append(buffer, sizeof buffer - room);
    in.remove_prefix(given - left);
    const bool moves = left < given || piece_ < kLongest;
    const bool goesOn = (error == E2BIG || (error == EINVAL && isCut)) && moves;
    if (status == static_cast<std::size_t>(-1) && !goesOn) {
      piece_ = kShortest;
      return false;
    }
    piece_ = std::min(2 * piece_, kLongest);
  }
  return true;
}

}  // namespace feedloom
