// The names and passwords that the user has given for web servers. They are kept in one file of the
// profile, in the registry's syntax, that only its user may read. Any thread may call these
// functions.
#pragma once

#include <optional>
#include <string>

#include "files/Registry.h"

namespace feedloom {

// In UTF-8.
struct HostLogin {
  std::string name;
  std::string password;
};

// A login for the server at `origin`, as UrlOrigin gives it.
struct GivenLogin {
  std::string origin;
  HostLogin login;
};

// Returns the path of the file that belongs to `registry`: "logins.reg" in the same directory.
std::string HostLoginsPath(const Registry& registry);

// Returns the login that the file `path` keeps for the server at `origin`. Nothing when it keeps
// none, when the file is missing or damaged, and for an empty `origin`.
std::optional<HostLogin> FindHostLogin(const std::string& path, const std::string& origin);

// Keeps `given` in the file `path`, in place of an older login for that server. The file is written
// whole or not at all, with mode 0600. Returns false when it cannot be written or is damaged.
[[nodiscard]] bool KeepHostLogin(const std::string& path, const GivenLogin& given);

}  // namespace feedloom
