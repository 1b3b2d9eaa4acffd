#include "ctl/Password.h"

#include <fmt/core.h>
#include <termios.h>
#include <unistd.h>

#include <iostream>

#include "text/Text.h"

namespace feedloom {
namespace {

// Keeps the terminal on standard input from showing what is typed, as long as the object lives.
// Ctrl+C is a character meanwhile: it must not end the program before the terminal shows again.
class HiddenTyping {
 public:
  HiddenTyping() {
    if (tcgetattr(STDIN_FILENO, &shown_) != 0) return;
    termios hidden = shown_;
    hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO | ISIG);
    isHidden_ = tcsetattr(STDIN_FILENO, TCSAFLUSH, &hidden) == 0;
  }
  ~HiddenTyping() {
    if (!isHidden_) return;
    tcsetattr(STDIN_FILENO, TCSAFLUSH, &shown_);
    fmt::print(stderr, "\n");
  }
  HiddenTyping(const HiddenTyping&) = delete;
  HiddenTyping& operator=(const HiddenTyping&) = delete;

 private:
  termios shown_{};
  bool isHidden_ = false;
};

}  // namespace

std::optional<std::string> ReadPassword(const std::string& prompt) {
  if (isatty(STDIN_FILENO) != 0) fmt::print(stderr, "{}", prompt);
  const HiddenTyping hidden;
  std::string line;
  const bool isRead = static_cast<bool>(std::getline(std::cin, line));
  return isRead && !HasControls(line) ? std::optional(line) : std::nullopt;
}

}  // namespace feedloom
