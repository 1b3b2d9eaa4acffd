#include "files/Registry.h"

#include <QFile>
#include <QLockFile>
#include <algorithm>
#include <filesystem>
#include <functional>
#include <mutex>
#include <utility>
#include <vector>

#include "files/RegistryFile.h"
#include "files/WholeFile.h"
#include "text/Text.h"

namespace feedloom {
namespace {

using Entries = std::vector<RegistryEntry>;

QString FileName(const std::string& path) {
  return QFile::decodeName(QByteArray::fromStdString(path));
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
std::optional<Value> Read(const std::string& path, const std::string& key,
                          const std::string& name) {
  const auto entries = Load(path);
  if (!entries) return std::nullopt;
  const auto found = FindLast(*entries, Named(key, name));
  if (found == entries->rend() || !std::holds_alternative<Value>(found->value)) return std::nullopt;
  return std::get<Value>(found->value);
}

}  // namespace

std::optional<std::uint32_t> Registry::ReadDword(const std::string& key,
                                                 const std::string& name) const {
  return Read<std::uint32_t>(path_, key, name);
}

std::optional<std::string> Registry::ReadString(const std::string& key,
                                                const std::string& name) const {
  return Read<std::string>(path_, key, name);
}

std::vector<RegistryEntry> Registry::ReadKey(const std::string& key) const {
  Entries entries = Load(path_).value_or(Entries());
  std::erase_if(entries, std::not_fn(InKey(key)));
  return entries;
}

bool Registry::Write(const std::vector<RegistryEntry>& entries) const {
  return PutIntoFile(path_, entries);
}

bool Registry::WriteDword(const std::string& key, const std::string& name,
                          std::uint32_t value) const {
  return Write({{key, name, value}});
}

bool Registry::WriteString(const std::string& key, const std::string& name,
                           const std::string& value) const {
  return Write({{key, name, value}});
}

std::string Registry::Beside(std::string_view name) const {
  return std::filesystem::path(path_).replace_filename(name).string();
}

bool Registry::IsReadable() const { return Load(path_).has_value(); }

}  // namespace feedloom
