// Documents with common faults, made well-formed. Only this folder includes this file.
#pragma once

#include <string>
#include <string_view>

namespace feedloom {

// Returns the document `bytes` as UTF-8 without these faults:
//
// - what stands before its first tag or declaration: white space, marks, control characters;
// - control characters, and references to them;
// - an ampersand that begins no reference: it becomes "&amp;";
// - bytes that are not of its encoding (XmlText).
//
// The result has no XML declaration. CDATA sections, comments, instructions and the document type
// lose their control characters only. References to entities stay, whether these are declared or
// not. Any other fault stays as well. Pure; linear time; any thread may call it.
std::string MendedXml(std::string_view bytes);

}  // namespace feedloom
