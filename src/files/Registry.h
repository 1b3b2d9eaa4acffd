// Typed values under keys such as HKEY_LOCAL_MACHINE\SOFTWARE\Halvix3.0, kept in one file per
// profile. Names of keys and values compare without regard to ASCII case.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "files/RegistryFile.h"

namespace feedloom {

// Programs that share a profile see each other's values: each call reads the file, which takes 13
// us with the values of a profile, and each write saves the whole file. Any thread may call these
// functions. The registry stores strings as bytes; the programs keep UTF-8 in them.
class Registry {
 public:
  // `path` is the .reg file; it need not exist.
  explicit Registry(std::string path) : path_(std::move(path)) {}

  // The value `name` of `key`. nullopt when it is missing or of the other type, and when the file
  // cannot be read.
  std::optional<std::uint32_t> ReadDword(const std::string& key, const std::string& name) const;
  std::optional<std::string> ReadString(const std::string& key, const std::string& name) const;

  // All values of `key`, in the file's order, in which a later one of a name counts.
  std::vector<RegistryEntry> ReadKey(const std::string& key) const;

  // Stores the values in this order; each may replace one of the other type. Waits for another
  // program's lock, 5 s at most. False, and no value is stored, when the lock stays, when the file
  // cannot be saved or is damaged: a damaged file is never replaced.
  [[nodiscard]] bool Write(const std::vector<RegistryEntry>& entries) const;

  // Store one value in the same way.
  [[nodiscard]] bool WriteDword(const std::string& key, const std::string& name,
                                std::uint32_t value) const;
  [[nodiscard]] bool WriteString(const std::string& key, const std::string& name,
                                 const std::string& value) const;

  // The path of the file `name` in the registry file's directory.
  std::string Beside(std::string_view name) const;

  // False when the file exists but cannot be read or is not in the syntax of RegistryFile.h.
  bool IsReadable() const;

 private:
  std::string path_;
};

}  // namespace feedloom
