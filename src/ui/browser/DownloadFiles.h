// The names and files of downloads.
#pragma once

#include <QString>

namespace feedloom {

// A safe file name for a download that the server calls `suggested`: without directories, leading
// dots and invisible characters, not empty, at most 200 bytes long in UTF-8. Keeps the file
// extension.
QString SafeFileName(const QString& suggested);

// A new path of a hidden file in the directory of `target`. Its name leaves room for the extension
// that the engine appends while it writes.
QString PartPath(const QString& target);

// Whether `target` names a file, not a directory, in an existing, writable directory.
bool CanWriteFile(const QString& target);

// Flushes `part` to the disk and renames it to `target`, which it replaces atomically. On failure
// returns false and leaves both files unchanged. Any thread.
[[nodiscard]] bool MovePartIntoPlace(const QString& part, const QString& target);

// Removes `part`, and the file of the name that the engine uses while it writes. Any thread.
void RemovePart(const QString& part);

}  // namespace feedloom
