#include "ctl/Since.h"

#include <charconv>
#include <ctime>

#include "threads/Clock.h"

namespace feedloom {
namespace {

constexpr int kMost = 36'500;

bool IsDay(const std::string& typed) {
  std::tm day{};
  const char* const end = strptime(typed.c_str(), "%Y-%m-%d", &day);
  return end != nullptr && *end == '\0' && typed.size() == 10;
}

// "7d" and "12h"; longer than a lifetime is no answer.
std::optional<std::chrono::hours> Age(const std::string& typed) {
  int count = 0;
  const auto [end, error] = std::from_chars(typed.data(), typed.data() + typed.size(), count);
  const std::string unit(end, typed.data() + typed.size());
  const int hours = unit == "d" ? 24 : unit == "h" ? 1 : 0;
  if (error != std::errc() || hours == 0 || count < 0 || count > kMost) return std::nullopt;
  return std::chrono::hours(count * hours);
}

}  // namespace

std::optional<std::string> SinceDate(const std::string& typed,
                                     std::chrono::system_clock::time_point now) {
  if (IsDay(typed)) return typed;
  const auto age = Age(typed);
  if (!age) return std::nullopt;
  return FormatLocalTime(now - *age, "%Y-%m-%d %H:%M:%S");
}

}  // namespace feedloom
