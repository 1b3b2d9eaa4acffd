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

// Since the system has started, in milliseconds.
double Now() {
  timespec now{};
  clock_gettime(CLOCK_BOOTTIME, &now);
  return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

// The system knows it in ticks of some milliseconds: it is the 22nd field of a line whose second
// one, the program's name, may hold blanks.
double ProgramStart() {
  std::ifstream file("/proc/self/stat");
  file.ignore(std::numeric_limits<std::streamsize>::max(), ')');
  std::string field;
  for (int i = 3; i <= 22; ++i) file >> field;
  return std::strtod(field.c_str(), nullptr) * 1e3 / static_cast<double>(sysconf(_SC_CLK_TCK));
}

}  // namespace

void BeginTimings() { isWanted = true; }

void NoteTime(const char* step) {
  if (!isWanted) return;
  static const double start = ProgramStart();
  std::fputs(fmt::format("{:.0f} ms: {}\n", Now() - start, step).c_str(), stderr);
}

PageTimings::PageTimings(QWidget& frame) {
  // By name: the host knows the frame's class only as a widget.
  if (isWanted) connect(&frame, SIGNAL(PageShown()), this, SLOT(OnPageShown()));
}

void PageTimings::OnPageShown() { NoteTime("page shown"); }

}  // namespace feedloom
