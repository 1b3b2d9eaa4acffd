// The dialogs as questions. Each shows its dialog over `parent` and returns when it is closed: the
// answer, or none when the user cancelled or `parent` went meanwhile. In the latter case nothing of
// the frame may be touched any more.
#pragma once

#include <optional>
#include <string>

class QWidget;

namespace feedloom {

class Frame;

// The word to search for, in the module's code page; never empty.
std::optional<std::string> AskSearchWord(Frame& frame, QWidget* parent);

// The id of the cabinet that is to receive posts.
std::optional<int> ChooseCabinet(Frame& frame, QWidget* parent);

}  // namespace feedloom
