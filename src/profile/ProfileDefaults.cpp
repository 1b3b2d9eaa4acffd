#include "profile/ProfileDefaults.h"

#include <cstdlib>
#include <string_view>

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
  return language == "ko" ? kKorean : kEnglish;
}

}  // namespace feedloom
