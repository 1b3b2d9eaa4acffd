#pragma once

#include <array>
#include <cstdint>

#include "store/Store.h"

namespace feedloom {

// What the file system tells of the database's two files, in the state that the last transaction of
// any program has left.
struct WriteMark {
  struct File {
    std::int64_t bytes = -1;   // -1: there is no such file
    std::int64_t written = 0;  // nanoseconds since 1970

    bool operator==(const File&) const = default;
  };
  std::array<File, 2> files = {};  // the database and its write-ahead log
  bool isSettled = false;          // a later write would give a file another time
};

// The mark of the present. Runs no SQL statement, does not pause and reports nothing. Any thread.
WriteMark ReadWriteMark(const Store& store);

// Returns false when nobody has written between the two marks. May be true without need: the file
// system's clock cannot tell two writes within some milliseconds apart. Pure.
bool MayHaveChanged(const WriteMark& earlier, const WriteMark& later);

}  // namespace feedloom
