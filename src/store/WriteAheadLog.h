#pragma once

struct sqlite3;

namespace feedloom {

// Makes the end of the connection `handle` leave the write-ahead log as it is. SQLite would else
// move the log into the database's file when the last connection is closed, and lock others out
// meanwhile; with a connection for each operation, each would pay for that. A database in another
// journal mode has no log, and nothing changes. To be called when the connection was just opened.
void KeepWriteAheadLog(sqlite3* handle);

}  // namespace feedloom
