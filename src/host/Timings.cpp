#include "host/Timings.h"

#include <fmt/core.h>
#include <unistd.h>

#include <QWidget>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <limits>
#include <string>

namespace feedloom {
namespace {

bool isWanted = false;

// The time since the system was booted, in milliseconds.
double Now() {
  timespec now{};
  clock_gettime(CLOCK_BOOTTIME, &now);
  return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

// The time between the system's boot and this process's start, in milliseconds, as exact as a clock
// tick. It is field 22 of /proc/self/stat, see proc(5). Field 2, the program's name in parentheses,
// may contain blanks.
double ProgramStart() {
  std::ifstream file("/proc/self/stat");
  file.ignore(std::numeric_limits<std::streamsize>::max(), ')');
  std::string field;
  for (int i = 3; i <= 22; ++i) file >> field;
  return std::strtod(field.c_str(), nullptr) * 1e3 / static_cast<double>(sysconf(_SC_CLK_TCK));
}

}  // namespace

void EnableTimings() { isWanted = true; }

void LogTiming(const char* step) {
  if (!isWanted) return;
  static const double start = ProgramStart();
  std::fputs(fmt::format("{:.0f} ms: {}\n", Now() - start, step).c_str(), stderr);
}

PageTimings::PageTimings(QWidget& frame) {
  // Connected by name: the host does not know the frame's class.
  if (isWanted) connect(&frame, SIGNAL(PageShown()), this, SLOT(OnPageShown()));
}

void PageTimings::OnPageShown() { LogTiming("page shown"); }

}  // namespace feedloom
