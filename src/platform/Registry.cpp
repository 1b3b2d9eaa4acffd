#include "platform/Registry.h"

#include <sys/stat.h>

#include <QFile>
#include <QLockFile>
#include <algorithm>
#include <array>
#include <ctime>
#include <filesystem>
#include <mutex>
#include <utility>
#include <vector>

#include "platform/Mutex.h"
#include "platform/RegistryFile.h"
#include "platform/Text.h"
#include "platform/WholeFile.h"

namespace feedloom {
namespace {

using Entries = std::vector<RegistryEntry>;

QString FileName(const std::string& path) {
  return QFile::decodeName(QByteArray::fromStdString(path));
}

// The stat(2) values that identify one version of a file: as long as they are the same, so is the
// content.
using FileVersion = std::array<std::int64_t, 7>;

struct FileState {
  FileVersion version;
  bool isSettled;  // the next write is certain to change `version`
};

// True when a write from now on gets another modification time than `written`. File systems keep
// that time in steps, and two writes within one step get the same time.
bool IsSettled(const timespec& written) {
  constexpr std::int64_t kMillisecond = 1'000'000;
  const bool isFine = written.tv_nsec % (10 * kMillisecond) != 0;
  const std::int64_t longestStep = (isFine ? 50 : 3000) * kMillisecond;
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  const std::int64_t age =
      (now.tv_sec - written.tv_sec) * 1000 * kMillisecond + now.tv_nsec - written.tv_nsec;
  return age > longestStep;
}

std::optional<FileState> StateOf(const std::string& path) {
  struct stat file = {};
  if (stat(path.c_str(), &file) != 0) return std::nullopt;
  const auto number = [](auto value) { return static_cast<std::int64_t>(value); };
  return FileState{.version = {number(file.st_dev), number(file.st_ino), number(file.st_size),
                               file.st_mtim.tv_sec, file.st_mtim.tv_nsec, file.st_ctim.tv_sec,
                               file.st_ctim.tv_nsec},
                   .isSettled = IsSettled(file.st_mtim)};
}

// The entries of the file, none of them when there is no file. nullopt when the file exists but
// cannot be read or is damaged.
std::optional<Entries> Load(const std::string& path) {
  QFile file(FileName(path));
  if (!file.exists()) return Entries();
  if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
  const std::string text = file.readAll().toStdString();
  if (file.error() != QFileDevice::NoError) return std::nullopt;
  return ParseRegistryFile(text);
}

// Replaces the file in one step: a reader sees either the old content or the new content. When
// `path` is a link, the file that it leads to is replaced.
bool Save(const std::string& path, const Entries& entries) {
  std::error_code failed;
  const auto target = std::filesystem::weakly_canonical(path, failed);
  return !failed && !WriteFileWhole(target.string(), FormatRegistryFile(entries));
}

// The last entry for which `isWanted` is true, since a later line of a file overrides an earlier
// one; rend() when there is none.
template <typename Range, typename Predicate>
auto FindLast(Range& entries, Predicate isWanted) {
  return std::find_if(entries.rbegin(), entries.rend(), isWanted);
}

auto InKey(const std::string& key) {
  return [&key](const RegistryEntry& entry) { return EqualsIgnoringAsciiCase(entry.key, key); };
}

auto Named(const std::string& key, const std::string& name) {
  return [&](const RegistryEntry& entry) {
    return EqualsIgnoringAsciiCase(entry.name, name) && EqualsIgnoringAsciiCase(entry.key, key);
  };
}

// Replaces the value of an entry with the same key and name. Without such an entry, adds `entry`
// behind the last one of its key.
void Put(Entries& entries, RegistryEntry entry) {
  if (const auto same = FindLast(entries, Named(entry.key, entry.name)); same != entries.rend()) {
    same->value = std::move(entry.value);
    return;
  }
  const auto neighbour = FindLast(entries, InKey(entry.key));
  if (neighbour != entries.rend()) entry.key = neighbour->key;
  entries.insert(neighbour != entries.rend() ? neighbour.base() : entries.end(), std::move(entry));
}

bool PutIntoFile(const std::string& path, const Entries& added) {
  constexpr int kPatienceMs = 5000;
  constexpr int kStaleMs = 1000;
  // The lock file keeps other programs out. Threads of this program wait for the mutex instead:
  // waiting for a lock file means polling.
  static std::mutex mutex;
  const std::lock_guard lock(mutex);
  QLockFile lockFile(FileName(path + ".lock"));
  // A program that was killed before it has written its number into the file leaves an empty one.
  // That of a program at work is kept, however old, by the system's own lock.
  lockFile.setStaleLockTime(kStaleMs);
  if (!lockFile.tryLock(kPatienceMs)) return false;
  auto entries = Load(path);
  if (!entries) return false;
  for (const RegistryEntry& entry : added) Put(*entries, entry);
  return Save(path, *entries);
}

template <typename Value>
std::optional<Value> ValueIn(const Entries* entries, const std::string& key,
                             const std::string& name) {
  if (entries == nullptr) return std::nullopt;
  const auto found = FindLast(*entries, Named(key, name));
  if (found == entries->rend() || !std::holds_alternative<Value>(found->value)) return std::nullopt;
  return std::get<Value>(found->value);
}

}  // namespace

struct Registry::Content {
  explicit Content(std::string file) : path(std::move(file)) {}

  // The current entries of the file; null when the file exists but cannot be read or is damaged.
  std::shared_ptr<const Entries> Now() {
    const MutexLock lock(mutex);
    const auto state = StateOf(path);
    if (known != nullptr && state && state->version == version) return known;
    known.reset();
    auto entries = Load(path);
    if (!entries) return nullptr;
    auto now = std::make_shared<const Entries>(*std::move(entries));
    if (!state || !state->isSettled) return now;
    version = state->version;
    return known = std::move(now);
  }

  const std::string path;
  Mutex mutex;
  std::shared_ptr<const Entries> known FEEDLOOM_GUARDED_BY(mutex);  // null: must be read again
  FileVersion version FEEDLOOM_GUARDED_BY(mutex) = {};              // of the file with `known`
};

Registry::Registry(std::string path) : content_(std::make_shared<Content>(std::move(path))) {}

std::optional<std::uint32_t> Registry::ReadDword(const std::string& key,
                                                 const std::string& name) const {
  return ValueIn<std::uint32_t>(content_->Now().get(), key, name);
}

std::optional<std::string> Registry::ReadString(const std::string& key,
                                                const std::string& name) const {
  return ValueIn<std::string>(content_->Now().get(), key, name);
}

bool Registry::Write(const std::vector<RegistryEntry>& entries) const {
  return PutIntoFile(content_->path, entries);
}

bool Registry::WriteDword(const std::string& key, const std::string& name,
                          std::uint32_t value) const {
  return Write({{key, name, value}});
}

bool Registry::WriteString(const std::string& key, const std::string& name,
                           const std::string& value) const {
  return Write({{key, name, value}});
}

bool Registry::IsReadable() const { return content_->Now() != nullptr; }

}  // namespace feedloom
