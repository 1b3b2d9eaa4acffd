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

// By what a file is known to be the same, with the same content, as before.
using FileMark = std::array<std::int64_t, 7>;

struct FileState {
  FileMark mark;
  bool isSettled;  // when it is written again, it gets another mark
};

// The time in a file moves in steps: two writes in one of them may leave the same mark.
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
  return FileState{
      .mark = {number(file.st_dev), number(file.st_ino), number(file.st_size), file.st_mtim.tv_sec,
               file.st_mtim.tv_nsec, file.st_ctim.tv_sec, file.st_ctim.tv_nsec},
      .isSettled = IsSettled(file.st_mtim)};
}

// None when the file exists and cannot be read or is damaged.
std::optional<Entries> Load(const std::string& path) {
  QFile file(FileName(path));
  if (!file.exists()) return Entries();
  if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
  const std::string text = file.readAll().toStdString();
  if (file.error() != QFileDevice::NoError) return std::nullopt;
  return ParseRegistryFile(text);
}

// Replaces the file in one step: a reader sees the old content or the new one. A link stays.
bool Save(const std::string& path, const Entries& entries) {
  std::error_code failed;
  const auto target = std::filesystem::weakly_canonical(path, failed);
  return !failed && !WriteFileWhole(target.string(), FormatRegistryFile(entries));
}

// The last of `entries`, as the later line of a file holds, that `isWanted`; rend() without one.
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

// Changes the value where it stands, or adds it to those of its key.
void Put(Entries& entries, RegistryEntry entry) {
  if (const auto same = FindLast(entries, Named(entry.key, entry.name)); same != entries.rend()) {
    same->value = std::move(entry.value);
    return;
  }
  const auto neighbour = FindLast(entries, InKey(entry.key));
  if (neighbour != entries.rend()) entry.key = neighbour->key;
  entries.insert(neighbour != entries.rend() ? neighbour.base() : entries.end(), std::move(entry));
}

bool Write(const std::string& path, RegistryEntry entry) {
  constexpr int kPatienceMs = 5000;
  // The lock file keeps other programs out; threads of this one would poll for it.
  static std::mutex mutex;
  const std::lock_guard lock(mutex);
  QLockFile lockFile(FileName(path + ".lock"));
  if (!lockFile.tryLock(kPatienceMs)) return false;
  auto entries = Load(path);
  if (!entries) return false;
  Put(*entries, std::move(entry));
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

  // What the file holds now; null when it exists and cannot be read or is damaged.
  std::shared_ptr<const Entries> Now() {
    const MutexLock lock(mutex);
    const auto state = StateOf(path);
    if (known != nullptr && state && state->mark == mark) return known;
    known.reset();
    auto entries = Load(path);
    if (!entries) return nullptr;
    auto now = std::make_shared<const Entries>(*std::move(entries));
    if (!state || !state->isSettled) return now;
    mark = state->mark;
    return known = std::move(now);
  }

  const std::string path;
  Mutex mutex;
  std::shared_ptr<const Entries> known FEEDLOOM_GUARDED_BY(mutex);  // null: nothing
  FileMark mark FEEDLOOM_GUARDED_BY(mutex) = {};                    // of the file with `known`
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

bool Registry::WriteDword(const std::string& key, const std::string& name,
                          std::uint32_t value) const {
  return Write(content_->path, {key, name, value});
}

bool Registry::WriteString(const std::string& key, const std::string& name,
                           const std::string& value) const {
  return Write(content_->path, {key, name, value});
}

bool Registry::IsReadable() const { return content_->Now() != nullptr; }

}  // namespace feedloom
