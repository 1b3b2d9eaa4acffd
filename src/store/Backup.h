#pragma once

#include "store/Store.h"

namespace feedloom {

// Copies the database to its own path with ".bak" at the end, in place of an older copy. Runs while
// no statement of this process does, and waits a moment for other programs' ones. The copy is whole
// or not made: it is written beside the older one and renamed when it has reached the disk. False,
// with the older copy kept and nothing reported, when it cannot be made or the database is damaged.
// Takes about 4 ms a megabyte. Any thread.
bool BackupDatabase(Store& store);

}  // namespace feedloom
