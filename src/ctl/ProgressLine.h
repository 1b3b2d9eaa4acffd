#pragma once

#include <string_view>

namespace feedloom {

// A line at the bottom of the terminal that tells how far a command is, until it is wiped. Goes to
// stderr, and nowhere unless stderr is a terminal that can wipe a line. The cursor stays at its
// beginning, so that whatever else is printed takes its place.
class ProgressLine {
 public:
  // Shows nothing unless it `isWanted`.
  explicit ProgressLine(bool isWanted);

  // Shows `utf8` in place of what is shown. It should be shorter than a terminal is wide.
  void Show(std::string_view utf8) const;
  void Wipe() const { Show(""); }

 private:
  const bool isShown_;
};

}  // namespace feedloom
