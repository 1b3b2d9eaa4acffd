#include "fetch/FeedMemory.h"

#include <fmt/core.h>

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iterator>
#include <optional>
#include <utility>
#include <vector>

#include "files/Path.h"
#include "text/Text.h"

namespace feedloom {
namespace {

constexpr std::string_view kFirstLine = "Feedloom feed memory 1";
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

bool HasNoControls(const FeedVisit& visit) {
  return !HasControls(visit.address) && !HasControls(visit.validators.etag) &&
         !HasControls(visit.validators.lastModified);
}

// Adds the visit of one line: channel id, address, ETag, Last-Modified, and `notBefore` in seconds
// since 1970.
void ReadLine(std::string_view line, FeedVisits& visits) {
  const auto fields = Split(line, kSeparator);
  if (fields.size() != 5) return;
  const auto id = NumberIn<int>(fields[0]);
  const auto seconds = NumberIn<std::int64_t>(fields[4]);
  if (!id || !seconds) return;
  FeedVisit visit;
  visit.address = fields[1];
  visit.validators = {std::string(fields[2]), std::string(fields[3])};
  visit.notBefore = std::chrono::sys_seconds(std::chrono::seconds(*seconds));
  if (HasNoControls(visit)) visits[*id] = std::move(visit);
}

}  // namespace

std::string FeedVisitsText(const FeedVisits& visits) {
  std::string text = fmt::format("{}\n", kFirstLine);
  for (const auto& [id, visit] : visits) {
    if (!HasNoControls(visit)) continue;
    text += fmt::format("{0}{5}{1}{5}{2}{5}{3}{5}{4}\n", id, visit.address, visit.validators.etag,
                        visit.validators.lastModified, visit.notBefore.time_since_epoch().count(),
                        kSeparator);
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

std::string FeedMemoryPath(const std::string& workDir) { return JoinPath(workDir, "feed_memory"); }

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
