// Files that are there whole or not at all. Paths are the file system's own bytes.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace feedloom {

// What went wrong, in English, for the user; none when all went well.
using Failure = std::optional<std::string>;

// Who may read a new file: its owner alone, or whom the system lets read new files.
enum class Readers { Owner, AsUsual };

// Puts `content` at `path` whole or not at all: it is written beside it and renamed when it has
// reached the disk. A link at `path` is replaced.
[[nodiscard]] Failure WriteFileWhole(const std::string& path, std::string_view content,
                                     Readers readers);

// Puts the finished file `from` in the place of `to`, in the same directory; removes it on failure.
[[nodiscard]] Failure MoveIntoPlace(const std::string& from, const std::string& to);

// Where a link at `path` leads to; `path` itself when it is none.
std::string BehindLinks(const std::string& path);

// "<what> '<path>': <the system's reason for the error number>."
std::string FileComplaint(std::string_view what, std::string_view path, int error);

}  // namespace feedloom
