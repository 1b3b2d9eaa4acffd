// Normalises any text as a date. The result is empty, or a valid calendar date in the stored form.
#include <fmt/format.h>

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <optional>

#include "feed/FeedDate.h"
#include "fuzz/FuzzKit.h"
#include "text/Text.h"

namespace feedloom {
namespace {

using std::chrono::sys_seconds;

// An independent check of a stored date: digits and separators in their places, and a valid day.
std::optional<sys_seconds> TimeOf(std::string_view stored) {
  constexpr std::string_view kForm = "0000-00-00 00:00:00";
  if (stored.size() != kForm.size()) return std::nullopt;
  for (std::size_t i = 0; i < kForm.size(); ++i) {
    const bool isDigit = stored[i] >= '0' && stored[i] <= '9';
    if (kForm[i] == '0' ? !isDigit : stored[i] != kForm[i]) return std::nullopt;
  }
  const auto number = [&](std::size_t at, std::size_t size) {
    return std::atoi(std::string(stored.substr(at, size)).c_str());
  };
  using namespace std::chrono;
  const year_month_day day{year(number(0, 4)), month(static_cast<unsigned>(number(5, 2))),
                           std::chrono::day(static_cast<unsigned>(number(8, 2)))};
  const int hour = number(11, 2), minute = number(14, 2), second = number(17, 2);
  if (!day.ok() || hour > 23 || minute > 59 || second > 59) return std::nullopt;
  return sys_days(day) + hours(hour) + minutes(minute) + seconds(second);
}

std::string Stored(sys_seconds time) {
  const auto days = std::chrono::floor<std::chrono::days>(time);
  const std::chrono::year_month_day date(days);
  const std::chrono::hh_mm_ss clock(time - days);
  return fmt::format("{:04}-{:02}-{:02} {:02}:{:02}:{:02}", static_cast<int>(date.year()),
                     static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                     clock.hours().count(), clock.minutes().count(), clock.seconds().count());
}

std::string Normalized(std::string text) {
  NormalizeFeedDate(text);
  return text;
}

bool IsYearOfPosts(std::string_view stored) { return stored >= "1970" && stored < "3001"; }

// True when this local time exists in the machine's time zone. The hour that the start of daylight
// saving time skips does not.
bool IsShownByClocks(sys_seconds time) {
  const std::time_t number = time.time_since_epoch().count();
  std::tm shown{};
  gmtime_r(&number, &shown);
  shown.tm_isdst = -1;
  const int hour = shown.tm_hour;
  std::mktime(&shown);
  return shown.tm_hour == hour;
}

// Checks the stored form of any text, in any time zone. Returns its time; std::nullopt when there
// is none or it is out of range.
std::optional<sys_seconds> CheckForm(const std::string& text) {
  const std::string stored = Normalized(text);
  RequireEqual(Normalized(" \t" + text + "\r\n"), stored, "white space around a date is nothing");
  if (stored.empty()) return std::nullopt;
  const auto time = TimeOf(stored);
  if (!time) RequireEqual(stored, "YYYY-MM-DD HH:MM:SS", "a date is empty or of the one form");
  Require(IsShownByClocks(*time), "a date is none that the zone leaves out");
  if (!IsYearOfPosts(stored)) return std::nullopt;  // moved out of range by an offset
  RequireEqual(Normalized(stored), stored, "a stored date is read as itself");
  return time;
}

void CheckDisplay(sys_seconds time) {
  const std::string stored = Stored(time);
  if (stored >= "2262") return;  // the last year of the clock
  RequireEqual(FormatPostDateForDisplay(stored, StandingClock(time)), stored.substr(11),
               "a date of today is shown as its time");
  RequireEqual(FormatPostDateForDisplay(stored, StandingClock(time + std::chrono::days(1))),
               stored.substr(0, 10), "a date of another day is shown as its day");
}

// A calendar time with an offset, in the notations of RFC 822 and RFC 3339.
void CheckWrittenDate(sys_seconds time, int offsetMinutes) {
  const std::string date = Stored(time);
  const std::string stored = Stored(time + std::chrono::minutes(offsetMinutes));
  const char sign = offsetMinutes < 0 ? '-' : '+';
  const int hours = std::abs(offsetMinutes) / 60, minutes = std::abs(offsetMinutes) % 60;
  RequireEqual(Normalized(fmt::format("{}T{}{}{:02}:{:02}", date.substr(0, 10), date.substr(11),
                                      sign, hours, minutes)),
               stored, "an ISO date has its offset added");
  constexpr std::string_view kMonths = "JanFebMarAprMayJunJulAugSepOctNovDec";
  const auto month = static_cast<std::size_t>(std::atoi(date.substr(5, 2).c_str())) - 1;
  RequireEqual(Normalized(fmt::format("Day, {} {} {} {} {}{:02}{:02}", date.substr(8, 2),
                                      kMonths.substr(3 * month, 3), date.substr(0, 4),
                                      date.substr(11), sign, hours, minutes)),
               stored, "an RFC 822 date has its offset added");
}

void UseZone(const char* name) {
  setenv("TZ", name, 1);
  tzset();
}

}  // namespace

void CheckInput(FuzzInput input) {
  const std::string text(input.Rest());
  UseZone("EST5EDT,M3.2.0,M11.1.0");
  CheckForm(text);
  UseZone("UTC");
  if (const auto time = CheckForm(text)) CheckDisplay(*time);
  std::uint64_t number = 0;
  for (int i = 0; i < 5; ++i) number = number << 8 | input.TakeByte();
  constexpr std::uint64_t kFrom1970To3000 = 32'503'680'000;  // seconds
  const sys_seconds time{std::chrono::seconds(number % kFrom1970To3000)};
  CheckWrittenDate(time, input.TakeByte() * 12 - 1500);
}

}  // namespace feedloom
