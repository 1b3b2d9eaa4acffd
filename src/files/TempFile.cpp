#include "files/TempFile.h"

#include <unistd.h>

namespace feedloom {

void TempFile::Remove() const { unlink(path_.c_str()); }

}  // namespace feedloom
