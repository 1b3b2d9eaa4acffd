#pragma once

#include <array>
#include <cstdint>

#include "store/Store.h"

namespace feedloom {

// What the file system tells of the database's files, in the state that some transaction has left.
struct WriteMark {
  struct File {
    std::int64_t bytes = -1;  // -1: there is no such file
    std::int64_t written = 0;  // nanoseconds since 1970

    bool operator==(const File&) const = default;
  };
  std::array<File, 2> files = {};  // the database and its write-ahead log

  // Equal marks: nobody has written in between.
  bool operator==(const WriteMark&) const = default;
};

// The mark of the present. Runs no SQL statement, does not pause and reports nothing. Any thread.
WriteMark ReadWriteMark(const Store& store);

}  // namespace feedloom
