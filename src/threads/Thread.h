#pragma once

#include <functional>
#include <thread>

namespace feedloom {

// Starts a thread that runs `work`, and stores it in `thread`, which must not be joinable. Returns
// false when the system refuses a thread; `thread` is unchanged then, and the caller still has
// `work` to run itself or to give up. Any thread may call it.
[[nodiscard]] bool StartThread(std::thread& thread, const std::function<void()>& work);

}  // namespace feedloom
