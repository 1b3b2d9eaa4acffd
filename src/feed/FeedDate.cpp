#include "feed/FeedDate.h"

#include <fmt/compile.h>

#include <algorithm>
#include <array>
#include <ctime>
#include <optional>

#include "text/Text.h"

namespace feedloom {
namespace {

constexpr auto kNone = std::string_view::npos;

struct DateFields {
  int year = 0;
  int month = 0;
  int day = 0;
  int hour = 0;
  int minute = 0;
  int second = 0;
};

struct Offset {
  int hours = 0;
  int minutes = 0;
};

struct ZoneName {
  std::string_view name;
  int hours;
};

constexpr ZoneName kZoneNames[] = {{"UT", 0},   {"Z", 0},    {"GMT", 0},  {"EST", -5},
                                   {"EDT", -4}, {"CST", -6}, {"CDT", -5}, {"MST", -7},
                                   {"MDT", -6}, {"PST", -8}, {"PDT", -7}};

constexpr std::array<std::string_view, 12> kMonths = {"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                                      "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};

bool AllDigits(std::string_view text) { return std::ranges::all_of(text, IsDigit); }

int TwoCharsAt(std::string_view text, std::size_t at) {
  return at < text.size() ? ParseInt(text.substr(at, 2)) : 0;
}

// Returns the hours of a military zone letter (RFC 822, 5.1): A to I and K to M lie west of
// Greenwich, N to Y east.
std::optional<int> MilitaryHours(char letter) {
  if (letter >= 'A' && letter <= 'I') return -(letter - 'A' + 1);
  if (letter >= 'K' && letter <= 'M') return -(letter - 'K' + 10);
  if (letter >= 'N' && letter <= 'Y') return letter - 'N' + 1;
  return std::nullopt;
}

// Returns the hours that the zone name `zone` stands for, or nothing when it is not a zone name.
std::optional<int> NamedZoneHours(std::string_view zone) {
  const std::string name = ToUpperAscii(zone);
  for (const ZoneName& known : kZoneNames) {
    if (known.name == name) return known.hours;
  }
  return name.size() == 1 ? MilitaryHours(name[0]) : std::nullopt;
}

// Adds the offset of `zone`, a name or a signed number, to `date`. `read` returns the number behind
// the sign.
template <typename ReadOffset>
void ApplyZone(std::string_view zone, DateFields& date, ReadOffset read) {
  if (const auto hours = NamedZoneHours(zone)) {
    date.hour += *hours;
    return;
  }
  if (!zone.starts_with('+') && !zone.starts_with('-')) return;
  const int sign = zone.starts_with('+') ? 1 : -1;
  const Offset offset = read();
  date.hour += sign * offset.hours;
  date.minute += sign * offset.minutes;
}

// Reads a text from left to right. Ended() is true once a mark was not found.
class Reader {
 public:
  explicit Reader(std::string_view text) : text_(text) {}

  bool Ended() const { return ended_; }
  std::size_t Position() const { return at_; }
  std::string_view Rest() const { return text_.substr(std::min(at_, text_.size())); }

  // Returns the text up to the next `mark` and moves behind that mark. Without a mark returns an
  // empty text and sets Ended().
  std::string_view UpTo(char mark) {
    const auto found = text_.find(mark, at_);
    ended_ = found == kNone;
    if (ended_) return {};
    const std::string_view taken = text_.substr(at_, found - at_);
    at_ = found + 1;
    return taken;
  }

  // Returns UpTo(' ') and moves behind all blanks that follow.
  std::string_view Word() {
    const std::string_view word = UpTo(' ');
    if (!ended_) at_ = std::min(text_.find_first_not_of(' ', at_), text_.size());
    return word;
  }

  std::string_view TwoChars() {
    const std::string_view taken = Rest().substr(0, 2);
    at_ += 2;
    return taken;
  }

  void MoveTo(std::size_t at) { at_ = at; }

 private:
  const std::string_view text_;
  std::size_t at_ = 0;
  bool ended_ = false;
};

// Reads an offset such as "+09:00", whose sign stands at `signAt`. For an offset without a colon
// the hours are 0 and the minutes are the first two digits of `text`, as in dates stored so far.
Offset ReadIsoOffset(std::string_view text, std::size_t signAt) {
  const auto colon = text.find(':', signAt + 1);
  if (colon == kNone) return {0, TwoCharsAt(text, 0)};
  return {ParseInt(text.substr(signAt + 1, colon - signAt - 1)), TwoCharsAt(text, colon + 1)};
}

DateFields ReadIso8601(std::string_view text) {
  DateFields date;
  Reader reader(text);
  date.year = ParseInt(reader.UpTo('-'));
  if (reader.Ended()) return {};
  date.month = ParseInt(reader.UpTo('-'));
  if (reader.Ended()) return date;
  const std::size_t dayAt = reader.Position();
  date.day = ParseInt(reader.TwoChars());
  auto time = text.find('T', dayAt);
  if (time == kNone) time = text.find(' ', dayAt);
  if (time == kNone) return date;
  reader.MoveTo(time + 1);
  date.hour = ParseInt(reader.UpTo(':'));
  if (reader.Ended()) return date;
  date.minute = ParseInt(reader.UpTo(':'));
  if (reader.Ended()) return date;
  date.second = ParseInt(reader.TwoChars());
  const std::size_t zoneAt = reader.Position();
  ApplyZone(reader.Rest(), date, [&] { return ReadIsoOffset(text, zoneAt); });
  return date;
}

int ReadMonth(std::string_view token) {
  if (AllDigits(token)) return ParseInt(token);
  const std::string upper = ToUpperAscii(token);
  const auto month = std::ranges::find_if(
      kMonths, [&](std::string_view name) { return upper.find(name) != std::string::npos; });
  return month == kMonths.end() ? 0 : static_cast<int>(month - kMonths.begin()) + 1;
}

// A year of fewer than four characters is read as one of the 1900s.
int ReadYear(std::string_view token) {
  return token.size() >= 4 ? ParseInt(token) : ParseInt("19" + std::string(token));
}

void ReadRfc822Time(Reader& reader, DateFields& date) {
  date.hour = ParseInt(reader.UpTo(':'));
  if (reader.Ended()) return;
  date.minute = ParseInt(reader.UpTo(':'));
  if (reader.Ended()) return;
  date.second = ParseInt(reader.Word());
  if (reader.Ended()) return;
  const std::string_view zone = reader.Rest();
  ApplyZone(zone, date, [&] { return Offset{TwoCharsAt(zone, 1), TwoCharsAt(zone, 3)}; });
}

DateFields ReadRfc822(std::string_view text) {
  DateFields date;
  Reader reader(text);
  reader.Word();  // the day's name
  if (reader.Ended()) return date;
  date.day = ParseInt(reader.Word());
  if (reader.Ended()) return date;
  const std::string_view month = reader.Word();
  if (reader.Ended()) return date;
  date.month = ReadMonth(month);
  const std::string_view year = reader.Word();
  if (reader.Ended()) return date;
  date.year = ReadYear(year);
  ReadRfc822Time(reader, date);
  return date;
}

bool InRange(const DateFields& date) {
  return date.year >= 1970 && date.year <= 3000 && date.month >= 1 && date.month <= 12 &&
         date.day >= 1 && date.day <= 31;
}

// Returns `time` as mktime normalises it: hours and minutes that an offset has taken out of their
// range are carried, and a time that the machine's zone skips is moved forward. Where TZ is not
// set, mktime checks the zone's file on each call, and a date takes 2.5 us instead of 0.4. So it is
// called only for a skipped time: one to which no offset of the zone leads back.
std::tm Carried(std::tm time) {
  thread_local long offset = 0;  // in seconds east of Greenwich; the one that was right last
  std::tm carried = time;
  const std::time_t asUtc = timegm(&carried);
  for (int tries = 0; tries < 2; ++tries) {
    const std::time_t instant = asUtc - offset;
    std::tm local{};
    if (localtime_r(&instant, &local) == nullptr) break;
    if (local.tm_gmtoff == offset) return carried;
    offset = local.tm_gmtoff;
  }
  std::mktime(&time);
  return time;
}

// Returns the stored form of `date`, or an empty text when a field is out of range.
std::string StoredForm(const DateFields& date) {
  if (!InRange(date)) return "";
  std::tm time{};
  time.tm_year = date.year - 1900;
  time.tm_mon = date.month - 1;
  time.tm_mday = date.day;
  time.tm_hour = date.hour;
  time.tm_min = date.minute;
  time.tm_sec = date.second;
  time.tm_isdst = -1;
  time.tm_wday = -1;  // stays -1 when mktime fails; its result -1 can also be a valid time
  time = Carried(time);
  const int year = time.tm_year + 1900;
  if (time.tm_wday < 0 || year < 0 || year > 9999) return "";
  return fmt::format(FMT_COMPILE("{:04}-{:02}-{:02} {:02}:{:02}:{:02}"), year, time.tm_mon + 1,
                     time.tm_mday, time.tm_hour, time.tm_min, time.tm_sec);
}

}  // namespace

void NormalizeFeedDate(std::string& text) {
  const std::string_view trimmed = Trim(text);
  if (trimmed.empty()) {
    text.clear();
    return;
  }
  text = StoredForm(IsDigit(trimmed[0]) ? ReadIso8601(trimmed) : ReadRfc822(trimmed));
}

std::string FormatPostDateForDisplay(std::string_view stored, const Clock& clock) {
  Reader reader(stored);
  DateFields date;
  int* const fields[] = {&date.year, &date.month, &date.day, &date.hour, &date.minute};
  constexpr std::string_view kMarks = "-- ::";
  for (std::size_t i = 0; i < kMarks.size(); ++i) {
    *fields[i] = ParseInt(reader.UpTo(kMarks[i]));
    if (reader.Ended()) return "";
  }
  date.second = ParseInt(reader.Rest());
  if (!InRange(date)) return "";
  const std::tm today = LocalTime(clock.Now());
  const bool isToday = date.year == today.tm_year + 1900 && date.month == today.tm_mon + 1 &&
                       date.day == today.tm_mday;
  return isToday ? fmt::format("{:02}:{:02}:{:02}", date.hour, date.minute, date.second)
                 : fmt::format("{}-{:02}-{:02}", date.year, date.month, date.day);
}

}  // namespace feedloom
