// The shared files that a profile is shown with: the directory of the ini files, and in it one
// directory for each skin, skin/<name>, with the images and colours (skin.ini) of that skin.
#pragma once

#include <array>
#include <string>
#include <utility>

#include "profile/Files.h"

namespace feedloom {

class HostConfig;

inline constexpr char kLightSkin[] = "light";
inline constexpr char kDarkSkin[] = "dark";
inline constexpr char kSkinIni[] = "skin.ini";  // in the directory of a skin

// The registry values that name places in the shared directory, in the order of writing.
using SharePaths = std::array<std::pair<const char*, std::string>, 3>;

// `shareDir` is absolute.
SharePaths SharePathsIn(const std::string& shareDir, const std::string& skin);

// The name of the skin that the profile is shown with.
std::string SkinName(const HostConfig& config);

// Shows the profile in `dir` with this skin of `shareDir` from the next start of the module on.
[[nodiscard]] Failure ChooseSkin(const std::string& dir, const std::string& shareDir,
                                 const std::string& skin);

}  // namespace feedloom
