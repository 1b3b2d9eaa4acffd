// What all fuzz targets share: a target states the property in CheckInput; what does not hold ends
// the program, and the fuzzer keeps the input that did it.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/Clock.h"
#include "platform/CodePage.h"

namespace feedloom {

// The bytes that the fuzzer chose, taken from front to back. Texts are split by the unit separator
// (0x1F), so that a seed is a file that one can write and read.
class FuzzInput {
 public:
  explicit FuzzInput(std::span<const std::uint8_t> bytes);

  // 0 when nothing is left.
  std::uint8_t TakeByte();
  // UTF-8 for a "U", else the Korean one.
  CodePage TakeCodePage();
  // Up to the next separator, which goes too; empty when nothing is left.
  std::string TakeText();
  bool IsEmpty() const { return rest_.empty(); }
  std::string_view Rest() const { return rest_; }

 private:
  std::string_view rest_;
};

// The target's properties, checked for one input.
void CheckInput(FuzzInput input);

// Ends the program when a property does not hold.
void Require(bool holds, std::string_view property);
// The same for two texts that must be equal, which it shows.
void RequireEqual(std::string_view actual, std::string_view expected, std::string_view property);

// The text is one of `codePage`: all of it survives the way to UTF-8 and back.
void RequireValid(std::string_view text, CodePage codePage, std::string_view property);

// A file in memory that holds `content`, for what reads by path.
class MemoryFile {
 public:
  explicit MemoryFile(std::string_view content);
  ~MemoryFile();
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  const std::string& Path() const { return path_; }

 private:
  int handle_;
  std::string path_;
};

// Stands at one time and never pauses.
class StandingClock : public Clock {
 public:
  explicit StandingClock(std::chrono::system_clock::time_point now = {}) : now_(now) {}
  std::chrono::system_clock::time_point Now() const override { return now_; }
  void Pause(std::chrono::milliseconds, std::stop_token) override {}

 private:
  const std::chrono::system_clock::time_point now_;
};

// A folder of this process in the system's folder for temporary files, made at the first call.
// Whoever runs the fuzzers removes it.
const std::string& ScratchFolder();

}  // namespace feedloom
