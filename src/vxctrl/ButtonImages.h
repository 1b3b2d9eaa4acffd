// Where the images of a skinned button lie.
#pragma once

#include <array>
#include <string>

namespace feedloom {

enum ButtonState { kButtonNormal, kButtonHover, kButtonPressed, kButtonDisabled };
inline constexpr int kButtonStateCount = 4;

// The file of each state, by ButtonState: `imagePath` itself is the normal state's; beside
// "update.png" lie "update_hover.png", "update_pressed.png" and "update_disabled.png". Paths are
// the file system's own bytes.
std::array<std::string, kButtonStateCount> ButtonImagePaths(const std::string& imagePath);

}  // namespace feedloom
