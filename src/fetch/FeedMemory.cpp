#include "fetch/FeedMemory.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iterator>
#include <optional>
#include <utility>
#include <vector>

#include "files/Path.h"
#include "files/WorkFiles.h"
#include "text/Text.h"

namespace feedloom {
namespace {

constexpr std::string_view kFirstLine = "Feedloom feed memory 2";
constexpr char kSeparator = '\t';

std::vector<std::string_view> Split(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  for (auto end = text.find(separator); end != text.npos; end = text.find(separator)) {
    parts.push_back(text.substr(0, end));
    text.remove_prefix(end + 1);
  }
  parts.push_back(text);
  return parts;
}

// Returns the number in `text`, or nothing when `text` has any other character.
template <typename Number>
std::optional<Number> NumberIn(std::string_view text) {
  Number number{};
  const char* const end = text.data() + text.size();
  const auto [stopped, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stopped != end) return std::nullopt;
  return number;
}

// The fields of a visit's line, in their order.
std::vector<std::string> Fields(int id, const FeedVisit& visit) {
  const auto number = [](std::int64_t value) { return fmt::format("{}", value); };
  const auto time = [&](std::chrono::sys_seconds t) {
    return number(t.time_since_epoch().count());
  };
  return {number(id),
          visit.address,
          visit.validators.etag,
          visit.validators.lastModified,
          time(visit.notBefore),
          number(static_cast<int>(visit.fault.kind)),
          number(visit.fault.number),
          number(visit.fault.column),
          visit.fault.detail,
          time(visit.tried),
          time(visit.succeeded),
          time(visit.failingSince),
          visit.movedTo,
          number(visit.period.count())};
}

// Takes the fields of a line one after another. A field that is missing or no number makes it
// faulty.
class FieldReader {
 public:
  explicit FieldReader(std::string_view line) : fields_(Split(line, kSeparator)) {}

  bool IsFaulty() const { return isFaulty_; }
  bool IsAtEnd() const { return next_ == fields_.size(); }

  std::string Text() {
    if (IsAtEnd()) isFaulty_ = true;
    const std::string text(isFaulty_ ? std::string_view() : fields_[next_++]);
    if (HasControls(text)) isFaulty_ = true;
    return text;
  }
  template <typename Number = std::int64_t>
  Number Value() {
    const auto value = NumberIn<Number>(Text());
    if (!value) isFaulty_ = true;
    return value.value_or(Number());
  }
  std::chrono::sys_seconds Time() { return std::chrono::sys_seconds(Seconds()); }
  std::chrono::seconds Seconds() { return std::chrono::seconds(Value()); }

 private:
  const std::vector<std::string_view> fields_;
  std::size_t next_ = 0;
  bool isFaulty_ = false;
};

FeedFault ReadFault(FieldReader& fields) {
  FeedFault fault;
  const int kind = fields.Value<int>();
  const bool isKnown = kind >= 0 && kind <= static_cast<int>(FeedFaultKind::Other);
  fault.kind = isKnown ? static_cast<FeedFaultKind>(kind) : FeedFaultKind::Other;
  fault.number = fields.Value<int>();
  fault.column = fields.Value<int>();
  fault.detail = fields.Text();
  return fault;
}

void ReadLine(std::string_view line, FeedVisits& visits) {
  FieldReader fields(line);
  const int id = fields.Value<int>();
  FeedVisit visit;
  visit.address = fields.Text();
  visit.validators.etag = fields.Text();
  visit.validators.lastModified = fields.Text();
  visit.notBefore = fields.Time();
  visit.fault = ReadFault(fields);
  visit.tried = fields.Time();
  visit.succeeded = fields.Time();
  visit.failingSince = fields.Time();
  visit.movedTo = fields.Text();
  visit.period = fields.Seconds();
  if (!fields.IsFaulty() && fields.IsAtEnd()) visits[id] = std::move(visit);
}

}  // namespace

bool IsDead(const FeedVisit& visit, std::chrono::sys_seconds now) {
  constexpr int kStatusGone = 410;
  constexpr std::chrono::days kLongEnough{30};
  const FeedFault& fault = visit.fault;
  if (fault.kind == FeedFaultKind::HttpStatus && fault.number == kStatusGone) return true;
  const bool fails = visit.failingSince != std::chrono::sys_seconds();
  return fails && now - visit.failingSince >= kLongEnough;
}

bool IsDue(const FeedVisit& visit, std::chrono::sys_seconds now) {
  if (visit.fault.kind != FeedFaultKind::None || now < visit.succeeded) return true;
  return now >= visit.succeeded + visit.period - visit.period / 10;
}

std::string FeedVisitsText(const FeedVisits& visits) {
  std::string text = fmt::format("{}\n", kFirstLine);
  for (const auto& [id, visit] : visits) {
    const std::vector<std::string> fields = Fields(id, visit);
    const auto hasControls = [](const std::string& field) { return HasControls(field); };
    if (std::any_of(fields.begin(), fields.end(), hasControls)) continue;
    text += fmt::format("{}\n", fmt::join(fields, std::string_view(&kSeparator, 1)));
  }
  return text;
}

FeedVisits ReadFeedVisits(std::string_view text) {
  FeedVisits visits;
  const auto lines = Split(text, '\n');
  if (lines.front() != kFirstLine) return visits;
  for (const std::string_view line : lines) ReadLine(line, visits);
  return visits;
}

std::string FeedMemoryPath(const std::string& workDir) {
  return JoinPath(workDir, kFeedMemoryFile);
}

void FeedMemory::Load() {
  FeedVisits visits = ReadFile();
  const MutexLock lock(mutex_);
  visits_ = std::move(visits);
  changed_.clear();
}

bool FeedMemory::IsEmpty() const {
  const MutexLock lock(mutex_);
  return visits_.empty();
}

FeedVisit FeedMemory::Last(int channelId, const std::string& address) const {
  const MutexLock lock(mutex_);
  const auto visit = visits_.find(channelId);
  return visit != visits_.end() && visit->second.address == address ? visit->second
                                                                    : FeedVisit{address};
}

void FeedMemory::Remember(int channelId, FeedVisit visit) {
  const MutexLock lock(mutex_);
  const auto known = visits_.find(channelId);
  if (known == visits_.end() ? visit.IsEmpty() : known->second == visit) return;
  visits_[channelId] = visit;
  changed_[channelId] = std::move(visit);
}

Failure FeedMemory::Save(const std::function<bool(int channelId)>& alive) {
  const MutexLock lock(mutex_);
  if (path_.empty() || changed_.empty()) return {};
  FeedVisits visits = ReadFile();
  std::erase_if(visits, [&](const auto& visit) { return !alive(visit.first); });
  for (auto& [id, visit] : std::exchange(changed_, {})) visits[id] = std::move(visit);
  std::erase_if(visits, [](const auto& visit) { return visit.second.IsEmpty(); });
  return WriteFileWhole(path_, FeedVisitsText(visits));
}

FeedVisits FeedMemory::ReadFile() const {
  std::ifstream file(path_, std::ios::binary);
  if (!file) return {};
  return ReadFeedVisits(std::string(std::istreambuf_iterator(file), {}));
}

}  // namespace feedloom
