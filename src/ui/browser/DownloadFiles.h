// The names and files of downloads.
#pragma once

#include <QString>

namespace feedloom {

// A file name to offer for what a server has named `suggested`: without directories, leading dots
// and characters that don't show, never empty, at most 200 bytes long in UTF-8. Its ending stays.
QString SafeFileName(const QString& suggested);

// A new path beside `target`, hidden and free. The name leaves room for the engine's own ending.
QString PartPath(const QString& target);

// Whether a file can be written to `target`, as far as can be told beforehand.
bool IsPlaceForFile(const QString& target);

// Puts `part`, when the disk has it, in the place of `target`, in one step. False when it cannot;
// both are then as before.
[[nodiscard]] bool MovePartIntoPlace(const QString& part, const QString& target);

// Removes what there is of `part`, also under the name that the engine gives it while it writes.
void RemovePart(const QString& part);

}  // namespace feedloom
