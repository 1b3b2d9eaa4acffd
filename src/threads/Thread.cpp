#include "threads/Thread.h"

#include <system_error>

namespace feedloom {

bool StartThread(std::thread& thread, const std::function<void()>& work) {
  try {
    thread = std::thread(work);
    return true;
  } catch (const std::system_error&) {
    return false;
  }
}

}  // namespace feedloom
