// The source and the result of an import, as plain values.
#pragma once

#include <string>

namespace feedloom {

// Where a list is to be read from.
struct ListSource {
  // The path of a file, in the file system's encoding, or a complete address in ASCII, as the user
  // entered it.
  std::string place;
  bool isAddress = false;
};

// Numbers of channels; `leftOut` counts entries without a feed too.
struct ImportSums {
  int added = 0;
  int present = 0;  // not added, because the folder holds the address already
  int leftOut = 0;
  bool isComplete = true;  // false: the import ended early
};

}  // namespace feedloom
