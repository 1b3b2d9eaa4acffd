// The paths of a skinned button's images.
#pragma once

#include <array>
#include <string>

namespace feedloom {

enum ButtonState { kButtonNormal, kButtonHover, kButtonPressed, kButtonDisabled };
inline constexpr int kButtonStateCount = 4;

// The image file of each state, indexed by ButtonState. That of the normal state is `imagePath`
// itself. For "update.png" the others are "update_hover.png", "update_pressed.png" and
// "update_disabled.png". Paths are the file system's bytes.
std::array<std::string, kButtonStateCount> ButtonImagePaths(const std::string& imagePath);

}  // namespace feedloom
