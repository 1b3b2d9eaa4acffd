#include "ui/tree/RowLabel.h"

namespace feedloom {

std::string AppendCount(std::string_view name, int count) {
  std::string label(name);
  if (count > 0) label.append("(").append(std::to_string(count)).append(")");
  return label;
}

std::string StripCount(std::string_view label) {
  return std::string(label.substr(0, label.rfind('(')));
}

}  // namespace feedloom
