// What a second start on the same profile hands to the first one, and the bytes in which it
// travels. All functions are pure.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace feedloom {

struct HandOver {
  // Addresses, and absolute paths in the file system's encoding.
  std::vector<std::string> contents = {};
  std::size_t omitted = 0;  // further ones, for which there is no room
  // With which the desktop lets a window come to the front; empty without one.
  std::string activationToken = {};
  bool isHidden = false;  // a start that wants no window

  bool operator==(const HandOver&) const = default;
};

// What the program's argument `argument` names, when it is given in `directory`: an address that
// names its scheme as it is, the path of a "file:" address on this machine, and an absolute path of
// anything else.
std::string ContentOf(const std::string& argument, const std::string& directory);

// The longest frame, in bytes.
inline constexpr std::size_t kMaxFrame = std::size_t{1} << 20;

// The frame of a hand-over, at most kMaxFrame bytes: contents that have no room in it are omitted.
std::string FrameOf(HandOver handOver);

struct ReceivedFrame {
  enum class State {
    Incomplete,  // so far
    Whole,
    Nonsense,  // nothing that FrameOf has made can begin like that
  };
  State state = State::Incomplete;
  HandOver handOver = {};  // of a whole frame
};

// Reads what has been received so far.
ReceivedFrame ReadFrame(std::string_view received);

}  // namespace feedloom
