// The receiver of the messages that code below the user interface sends. A message is a number and
// two pointer-sized values.
#pragma once

#include <cstdint>

namespace feedloom {

class MessageTarget {
 public:
  virtual ~MessageTarget() = default;

  // Delivers the message, waits for its handler, and returns what the handler returned. A target
  // that is closing returns 0 at once. Any thread may call it.
  virtual std::intptr_t Send(unsigned message, std::intptr_t wParam, std::intptr_t lParam) = 0;
};

}  // namespace feedloom
