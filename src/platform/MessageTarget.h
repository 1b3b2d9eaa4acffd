// Where code below the windows sends its messages: a number and two pointer-sized values, as a
// window message carries them.
#pragma once

#include <cstdint>

namespace feedloom {

class MessageTarget {
 public:
  virtual ~MessageTarget() = default;

  // Delivers the message and returns what its handler returned. Synchronous: the call comes back
  // when the handler is done. Any thread may call it; a target that is closing answers 0 at once.
  virtual std::intptr_t Send(unsigned message, std::intptr_t wParam, std::intptr_t lParam) = 0;
};

}  // namespace feedloom
