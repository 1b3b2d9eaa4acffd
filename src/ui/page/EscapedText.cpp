#include "ui/page/EscapedText.h"

#include "text/Text.h"

namespace feedloom {

std::string EscapedText(std::string_view text) {
  const std::string escaped = ReplaceAll(ReplaceAll(text, "&", "&amp;"), "<", "&lt;");
  return ReplaceAll(escaped, "\"", "&quot;");
}

}  // namespace feedloom
