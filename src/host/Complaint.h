#pragma once

#include <string>

namespace feedloom {

// "halvix: " and the text (UTF-8), to stderr.
void Complain(const std::string& text);

// Whether windows can be shown where the user sees them.
bool HasDisplay();

// Shows the text in a box, too, and waits until it is closed. Makes an application object when
// there is none.
void ComplainInBox(const std::string& text);

}  // namespace feedloom
