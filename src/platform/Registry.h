// Typed values under keys such as HKEY_LOCAL_MACHINE\SOFTWARE\Halvix3.0, kept in one file per
// profile. Key and value names compare without regard to ASCII case.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace feedloom {

// Each call looks at the file and reads it again when it has changed, each write saves it whole, so
// that programs which share a profile see each other's values. Any thread may call it. Strings are
// bytes to the registry; the programs keep UTF-8 in them.
class Registry {
 public:
  // `path` is the .reg file; it need not exist.
  explicit Registry(std::string path);

  // None when the value is missing, is of the other type, or the file cannot be read.
  std::optional<std::uint32_t> ReadDword(const std::string& key, const std::string& name) const;
  std::optional<std::string> ReadString(const std::string& key, const std::string& name) const;

  // False when the file cannot be saved, and when it is damaged: a damaged file is never replaced.
  [[nodiscard]] bool WriteDword(const std::string& key, const std::string& name,
                                std::uint32_t value) const;
  [[nodiscard]] bool WriteString(const std::string& key, const std::string& name,
                                 const std::string& value) const;

  // False when the file exists and cannot be read or is not in the registry's syntax.
  bool IsReadable() const;

 private:
  struct Content;

  std::shared_ptr<Content> content_;  // the copies of an object share it
};

}  // namespace feedloom
