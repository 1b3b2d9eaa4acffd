// Files that are there whole or not at all. Paths are the file system's own bytes.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace feedloom {

// What went wrong, in English, for the user; none when all went well.
using Failure = std::optional<std::string>;

// Puts `content` at `path`, a file of the program's own that its user alone may read, whole or not
// at all: it is written beside it, as "<path>.new", and renamed when it has reached the disk. A
// link at `path` is replaced.
[[nodiscard]] Failure WriteFileWhole(const std::string& path, std::string_view content);

// The same for a place that the user has chosen: no other file there is touched, a file that is
// replaced keeps who may read it, a link stays and what it leads to is replaced. What is no file,
// a pipe say, is written to.
[[nodiscard]] Failure SaveFile(const std::string& path, std::string_view content);

// Puts the finished file `from` in the place of `to`, in the same directory; removes it on failure.
[[nodiscard]] Failure MoveIntoPlace(const std::string& from, const std::string& to);

// "<what> '<path>': <the system's reason for the error number>."
std::string FileComplaint(std::string_view what, std::string_view path, int error);

}  // namespace feedloom
