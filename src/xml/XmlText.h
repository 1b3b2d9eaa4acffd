// A faulty XML document as text. Only this folder includes this file.
#pragma once

#include <string>
#include <string_view>

namespace feedloom {

inline constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";  // of UTF-8

// Returns the document `bytes` as UTF-8. A byte order mark may stay. Its encoding is, in this
// order, what its first four bytes tell (DetectForeignEncoding), what it declares, UTF-8, EUC-KR;
// the first in which all bytes are characters. Without one it is
//
// - what it declares, when that is another than UTF-8, with U+FFFD for what is no character;
// - UTF-8, when some character is, with U+FFFD for a character that is cut off, and each other byte
//   as one of windows-1252;
// - windows-1252 else.
//
// Pure; linear time; any thread may call it.
std::string XmlText(std::string_view bytes);

}  // namespace feedloom
