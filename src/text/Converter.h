// Only the files of this folder include this one.
#pragma once

#include <iconv.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace feedloom {

// Converts one text from an encoding to another, both named as iconv(3) does. Belongs to one
// thread.
class Converter {
 public:
  Converter(const char* to, const char* from) : handle_(iconv_open(to, from)) {}
  ~Converter() {
    if (IsKnown()) iconv_close(handle_);
  }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;

  // False when the system lacks one of the two encodings; then nothing may be converted.
  bool IsKnown() const { return handle_ != reinterpret_cast<iconv_t>(-1); }

  // Converts `in`, appends the result to `out`, and removes what was converted from `in`. False
  // when it stops before a character that cannot be converted.
  bool Convert(std::string_view& in, std::string& out);

 private:
  // iconv reads far ahead and starts over when it meets a character that it cannot convert. With
  // pieces of one length, a long text full of such characters would take quadratic time. So the
  // pieces are short after such a character, and their length doubles from there.
  static constexpr std::size_t kShortest = 16;
  static constexpr std::size_t kLongest = 4096;

  iconv_t handle_;
  std::size_t piece_ = kLongest;
};

}  // namespace feedloom
