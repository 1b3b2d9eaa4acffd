#pragma once

#include <optional>
#include <string>
#include <vector>

#include "store/Connection.h"
#include "text/CodePage.h"

namespace feedloom {

// A text that waits to be indexed. The texts are UTF-8.
struct WaitingText {
  bool isSaved = false;  // a saved post's
  int postId = 0;
  std::string change = "0";  // differs when the text has changed
  std::string title = {};
  std::string html = {};
};

// The first texts that wait, `most` at most. None after a failure, which is reported.
std::optional<std::vector<WaitingText>> ReadWaitingTexts(Connection& connection, CodePage codePage,
                                                         int most);

}  // namespace feedloom
