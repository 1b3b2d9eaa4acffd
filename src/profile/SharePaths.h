// The paths in a profile's registry that lead to the program's shared files: the directory of the
// ini files and, in it, one directory skin/<name> for each skin, with its images and colours
// (skin.ini).
#pragma once

#include <string>
#include <vector>

#include "files/RegistryFile.h"
#include "profile/Files.h"

namespace feedloom {

class HostConfig;

inline constexpr char kLightSkin[] = "light";
inline constexpr char kDarkSkin[] = "dark";
inline constexpr char kSkinIni[] = "skin.ini";  // in the directory of a skin

// The registry values with paths in the shared directory, for `skin` in `shareDir`, which must be
// absolute. The first path is the longest.
std::vector<RegistryEntry> SharePathsIn(const std::string& shareDir, const std::string& skin);

// The name of the profile's current skin: the last component of its image directory.
std::string SkinName(const HostConfig& config);

// Stores this skin of `shareDir` in the registry of the profile in `dir`; the module uses it from
// its next start on. Fails, with a message (UTF-8), when there is no such skin or the registry
// cannot be written.
[[nodiscard]] Failure ChooseSkin(const std::string& dir, const std::string& shareDir,
                                 const std::string& skin);

}  // namespace feedloom
