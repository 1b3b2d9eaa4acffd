// Writes files so that they are complete or unchanged, even if the program is killed. Paths consist
// of the file system's bytes. Any thread may call these functions.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace feedloom {

// The reason of a failure, in English, for the user; nullopt on success.
using Failure = std::optional<std::string>;

// Writes `content` to `path`, a file of the program that only its user may read. The content is
// written to "<path>.new", which is renamed to `path` when it is on the disk. A link at `path` is
// replaced by the file.
[[nodiscard]] Failure WriteFileWhole(const std::string& path, std::string_view content);

// Writes `content` to `path`, a file that the user has chosen, as WriteFileWhole does. No other
// file of its directory is changed. A file that is replaced keeps its permissions. When `path` is a
// link, the file that it leads to is replaced. A pipe or a device is written to directly.
[[nodiscard]] Failure SaveFile(const std::string& path, std::string_view content);

// Renames the finished file `from` to `to`, in the same directory. Removes `from` on failure.
[[nodiscard]] Failure MoveIntoPlace(const std::string& from, const std::string& to);

// "<what> '<path>': <the system's reason for the error number>."
std::string FileError(std::string_view what, std::string_view path, int error);

}  // namespace feedloom
