// The registry keys under which the host and the module keep their values.
#pragma once

namespace feedloom {

inline constexpr char kHostKey[] = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Halvix3.0";
// The module's own settings.
inline constexpr char kModuleKey[] = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Halvix3.0\\Skyfold";

}  // namespace feedloom
