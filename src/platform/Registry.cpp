#include "platform/Registry.h"

#include <QFile>
#include <QLockFile>
#include <QSaveFile>
#include <algorithm>
#include <mutex>
#include <vector>

#include "platform/RegistryFile.h"
#include "platform/Text.h"

namespace feedloom {
namespace {

using Entries = std::vector<RegistryEntry>;

QString FileName(const std::string& path) {
  return QFile::decodeName(QByteArray::fromStdString(path));
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

// Replaces the file in one step: a reader sees the old content or the new one.
bool Save(const std::string& path, const Entries& entries) {
  const std::string text = FormatRegistryFile(entries);
  QSaveFile file(FileName(path));
  return file.open(QIODevice::WriteOnly) &&
         file.write(text.data(), static_cast<qint64>(text.size())) ==
             static_cast<qint64>(text.size()) &&
         file.commit();
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

bool Registry::WriteDword(const std::string& key, const std::string& name,
                          std::uint32_t value) const {
  return Write(path_, {key, name, value});
}

bool Registry::WriteString(const std::string& key, const std::string& name,
                           const std::string& value) const {
  return Write(path_, {key, name, value});
}

bool Registry::IsReadable() const { return Load(path_).has_value(); }

}  // namespace feedloom
