#include "store/WriteAheadLog.h"

#include <sqlite3.h>

namespace feedloom {

void KeepWriteAheadLog(sqlite3* handle) {
  int keep = 1;
  sqlite3_db_config(handle, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
  sqlite3_file_control(handle, "main", SQLITE_FCNTL_PERSIST_WAL, &keep);
}

}  // namespace feedloom
