#include "ctl/ProgressLine.h"

#include <fmt/core.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace feedloom {
namespace {

// TERM is "dumb", or missing, where a terminal knows no escape sequences.
bool CanWipeLines() {
  const char* term = std::getenv("TERM");  // NOLINT(concurrency-mt-unsafe)
  return term != nullptr && std::string_view(term) != "dumb" && isatty(STDERR_FILENO) != 0;
}

}  // namespace

ProgressLine::ProgressLine(bool isWanted) : isShown_(isWanted && CanWipeLines()) {}

// ECMA-48: EL (CSI K) wipes from the cursor to the end of the line.
void ProgressLine::Show(std::string_view utf8) const {
  if (isShown_) fmt::print(stderr, "\x1b[K{}\r", utf8);
}

}  // namespace feedloom
