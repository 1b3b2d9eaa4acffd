// The host's configuration: the values of the registry key HKEY_LOCAL_MACHINE\SOFTWARE\Halvix3.0.
#pragma once

#include <cstddef>
#include <string>

#include "platform/CodePage.h"
#include "platform/Registry.h"

namespace feedloom {

// The longest values that the getters return, in bytes: the host keeps them in zero-terminated
// buffers of 260 and 128 bytes. A longer path loses its end; a longer text loses whole characters.
inline constexpr std::size_t kMaxHostPath = 259;
inline constexpr std::size_t kMaxHostText = 127;

inline constexpr char kDefaultAppTitle[] = "Halvix 3.0";

// Every call reads its value afresh; a missing one is an empty string. Paths are the file system's
// own bytes, texts are in the module's code page. Any thread may call it.
class HostConfig {
 public:
  explicit HostConfig(Registry registry) : registry_(std::move(registry)) {}

  // The code page of the module's texts: UTF-8 when the value CODEPAGE says so, else the Korean
  // one.
  CodePage GetCodePage() const;

  std::string GetImageDir() const;  // with its separator at the end
  std::string GetCurrentPath() const;
  std::string GetWorkDir() const;

  std::string GetAppTitle() const;      // kDefaultAppTitle when missing or empty
  std::string GetHostLanguage() const;  // "KOR", "ENG"
  std::string GetModelName() const;     // GetDefaultModelName() when missing
  std::string GetDefaultModelName() const;
  std::string GetPlatform() const;
  std::string GetOsType() const;
  bool IsDebugMode() const;

  // The directory of the host's ini files, with its separator at the end, and the files in it.
  std::string GetIniDir() const;
  std::string GetImageIniPath() const;
  std::string GetStringIniPath() const;
  std::string GetBmCorvaneIniPath() const;
  std::string GetCorvaneIniPath() const;
  std::string GetModelIniPath() const;  // the model name with a-z in upper case, and ".ini"

 private:
  std::string Path(const char* name) const;
  std::string Text(const char* name) const;

  Registry registry_;
};

}  // namespace feedloom
