#include "ctl/StoreErrors.h"

#include "ctl/Output.h"
#include "store/Connection.h"

namespace feedloom {

void StoreErrors::Report(std::string_view message) {
  anyReported_ = true;
  if (!MeansLocked(message)) return PrintError(message);
  if (!isLockTold_.exchange(true)) PrintError(kDatabaseInUse);
}

}  // namespace feedloom
