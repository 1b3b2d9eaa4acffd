// Shared by all fuzz targets. A target checks its properties in CheckInput. A violated property
// aborts the program, and the fuzzer keeps the input.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "files/MemoryFile.h"
#include "text/CodePage.h"
#include "threads/Clock.h"

namespace feedloom {

// The fuzzer's bytes, read from front to back. The unit separator (0x1F) ends each text, so that
// seeds are readable files.
class FuzzInput {
 public:
  explicit FuzzInput(std::span<const std::uint8_t> bytes);

  // Returns 0 when no byte is left.
  std::uint8_t TakeByte();
  // Reads one byte: UTF-8 for "U", the Korean code page for any other.
  CodePage TakeCodePage();
  // Reads up to the next separator and removes it; returns "" when no byte is left.
  std::string TakeText();
  bool IsEmpty() const { return rest_.empty(); }
  std::string_view Rest() const { return rest_; }

 private:
  std::string_view rest_;
};

// Defined by each target: checks its properties for one input.
void CheckInput(FuzzInput input);

// Aborts the program with `property` as the message when `holds` is false.
void Require(bool holds, std::string_view property);
// Aborts the program with `property` and both texts when the texts differ.
void RequireEqual(std::string_view actual, std::string_view expected, std::string_view property);

// Requires that `text` is valid in `codePage`: it is the same after conversion to UTF-8 and back.
void RequireValid(std::string_view text, CodePage codePage, std::string_view property);

// A clock that always shows the same time and does not pause.
class StandingClock : public Clock {
 public:
  explicit StandingClock(std::chrono::system_clock::time_point now = {}) : now_(now) {}
  std::chrono::system_clock::time_point Now() const override { return now_; }
  std::chrono::steady_clock::time_point SteadyNow() const override { return {}; }
  void Pause(std::chrono::milliseconds, std::stop_token) override {}

 private:
  const std::chrono::system_clock::time_point now_;
};

// Returns a temporary folder of this process, created by the first call. `run` removes it.
const std::string& ScratchFolder();

}  // namespace feedloom
