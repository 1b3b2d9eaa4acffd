#include "profile/ProfileDefaults.h"

#include <cstdlib>
#include <string_view>

#include "text/Text.h"

namespace feedloom {
namespace {

constexpr char kKorean[] = "KOR";
constexpr char kEnglish[] = "ENG";

std::string_view LocaleName() {
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* const value = std::getenv(name);  // NOLINT(concurrency-mt-unsafe)
    if (value != nullptr && *value != '\0') return value;
  }
  return {};
}

}  // namespace

std::string DefaultLanguage() {
  const std::string_view name = LocaleName();
  const std::string_view language = name.substr(0, name.find_first_of("_.@"));
  const bool isNone = language.empty() || language == "C" || language == "POSIX";
  return isNone || language == "ko" ? kKorean : kEnglish;
}

CodePage DefaultCodePage(const std::string& language) {
  return EqualsIgnoringAsciiCase(language, kKorean) ? CodePage::Korean() : CodePage::Utf8();
}

}  // namespace feedloom
