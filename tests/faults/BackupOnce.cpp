// Backs the database up that the command line names, once: something to kill on the way.
#include "store/Backup.h"

int main(int argc, char** argv) {
  using namespace feedloom;
  if (argc != 2) return 2;
  Store store(argv[1], CodePage::Korean(), SystemClock(), [](std::string_view) {});
  return BackupDatabase(store) ? 0 : 1;
}
