#include "ui/tree/RowLabel.h"

namespace feedloom {

std::string AppendCount(std::string_view name, int count) {
  std::string label(name);
  if (count > 0) label += "(" + std::to_string(count) + ")";
  return label;
}

// The byte "(" is never a part of a longer character, neither in the Korean code page nor in UTF-8.
std::string StripCount(std::string_view label) {
  return std::string(label.substr(0, label.rfind('(')));
}

}  // namespace feedloom
