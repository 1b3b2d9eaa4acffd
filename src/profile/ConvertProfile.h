#pragma once

#include "profile/Profile.h"

namespace feedloom {

// Makes a UTF-8 profile of one in another code page: every text of its database, and the registry.
// What the profile was is in the backup FormerProfile() afterwards. A profile in UTF-8 stays as it
// is. After a failure, a message for the user (UTF-8), nothing has changed. The caller holds the
// profile's lock.
[[nodiscard]] Failure ConvertToUtf8(const ProfilePaths& paths);

}  // namespace feedloom
