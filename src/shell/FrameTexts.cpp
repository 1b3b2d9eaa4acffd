#include "shell/FrameTexts.h"

#include "platform/Text.h"

namespace feedloom {

std::string WithLineBreaks(std::string_view text) { return ReplaceAll(text, "$", "\r\n"); }

std::string WithTitle(std::string_view text, std::string_view title) {
  constexpr std::string_view kField = "%s";
  std::string filled(text);
  const auto at = filled.find(kField);
  if (at != std::string::npos) filled.replace(at, kField.size(), title);
  return filled;
}

}  // namespace feedloom
