// What goes into an import and what comes out, as plain values.
#pragma once

#include <string>

namespace feedloom {

// Where a list is.
struct ListSource {
  // The path of a file, in the file system's own bytes, or an address that the user typed:
  // complete, in ASCII.
  std::string place;
  bool isAddress = false;
};

struct ImportSums {
  int added = 0;
  int present = 0;  // their folder had the address already
  int leftOut = 0;
  bool isComplete = true;
};

}  // namespace feedloom
