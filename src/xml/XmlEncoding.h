// The encodings that the first bytes of a document tell. Only this folder includes this file.
#pragma once

#include <cstddef>
#include <string_view>

namespace feedloom {

struct ForeignEncoding {
  const char* name = nullptr;  // of iconv(3); null: one whose ASCII characters are single bytes
  std::size_t mark = 0;        // the length of the byte order mark
};

// Tells UTF-32 and UTF-16 by the first four bytes of a document (XML 1.0, appendix F). A mark of
// UTF-8 is no foreign encoding's. Pure; any thread may call it.
ForeignEncoding DetectForeignEncoding(std::string_view start);

}  // namespace feedloom
